whose
--! -2741 Expected expression but found “whose”.
