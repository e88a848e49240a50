paragraphs of "a\nb\r\nc\rd\n"
--> {"a", "b", "c", "d", ""}
