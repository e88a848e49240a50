try
1 div 0
on error m number n
{m, n}
end try
--> {"Can’t divide 1 by zero.", -2701}
