{class of 1, class of 1.0, class of "a", class of {}, class of {a:1}, class of true, class of integer, class of (file "/a")}
--> {integer, real, text, list, record, boolean, class, alias}
