{class of yes, class of no, class of ask}
--> {constant, constant, constant}
