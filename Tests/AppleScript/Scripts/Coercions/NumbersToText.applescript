{1 as text, 1.0 as string, 0.1 as Unicode text, -5 as text}
--> {"1", "1.0", "0.1", "-5"}
