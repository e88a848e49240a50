set r to {Foo:1}
FOO of r
--> 1
