tell application "Nowhere" to get background only of process 1
--! -2741 Expected end of line but found identifier.
