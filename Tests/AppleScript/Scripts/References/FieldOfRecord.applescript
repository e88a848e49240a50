set r to {name:"n", |my label|:2, plain:3}
{name of r, |my label| of r, plain of r}
--> {"n", 2, 3}
