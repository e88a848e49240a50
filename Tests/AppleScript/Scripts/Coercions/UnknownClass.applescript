5 as nonsense
--! -2741 Expected class name but found identifier.
