integer as text
--> "integer"
