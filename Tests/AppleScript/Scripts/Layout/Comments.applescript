-- one
# two
(* three (* nested *) still *)
1 -- here too
--> 1
