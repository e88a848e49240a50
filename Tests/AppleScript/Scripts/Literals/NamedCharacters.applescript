linefeed & return & tab & space & quote
--> "\n\r\t \""
