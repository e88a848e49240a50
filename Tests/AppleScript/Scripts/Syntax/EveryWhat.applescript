every nonsense
--! -2741 Expected class name but found identifier.
