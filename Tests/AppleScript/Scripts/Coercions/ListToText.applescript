{1, "a", true} as text
--> "1atrue"
