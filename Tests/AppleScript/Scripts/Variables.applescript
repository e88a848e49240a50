-- Copy
copy 5 to x
x
--> 5

-- CopyDoesNotShareLists
set a to {1, {2}}
copy a to b
set item 1 of item 2 of b to 9
a
--> {1, {2}}

-- CopyToEnd
set l to {}
copy 1 to end of l
l
--> {1}

-- ListHoldsItself
set l to {1}
set end of l to l
count of l
--> 2

-- NameIsAVariableOutsideTell
set name to "x"
name & "y"
--> "xy"

-- PropertyNameAfterTell
tell {1, 2}
	set amount to length
end tell
set length to 5
{amount, length}
--> {2, 5}

-- ResultCanBeSet
set result to "a"
set result to result & "b"
result
--> "ab"

-- ResultIsTheLastValue
1 + 1
result * 2
--> 4

-- ResultStaysAfterACommandWithoutValue
5
tell application "Deskloom" to install plugin
result
--> 5

-- ResultThatHoldsItself
set l to {1}
set end of l to l
l
--! -2706 Stack overflow.

-- ResultUndefined
result
--! -2753 The variable result is not defined.

-- SetAndGet
set x to 3
set y to x + 1
{x, y}
--> {3, 4}

-- SetCountsAsListNotText
set x to "abc"
set x to x & "d"
length of x
--> 4

-- SetEndAndBeginning
set l to {}
set end of l to 1
set beginning of l to 0
l
--> {0, 1}

-- SetItem
set l to {1, 2, 3}
set item 2 of l to "x"
set last item of l to "y"
l
--> {1, "x", "y"}

-- SetItemOutOfRange
set l to {1}
set item 2 of l to 0
--! -10006 Can’t set item 2 of {1} to 0.

-- SetLiteral
set 1 to 2
--! -2741 Can’t set this expression to something.
--@ 4 1

-- SetPattern
set {a, {b, c}} to {1, {2, 3}}
{c, b, a}
--> {3, 2, 1}

-- SetPatternSwaps
set a to 1
set b to 2
set {a, b} to {b, a}
{a, b}
--> {2, 1}

-- SetPatternTooLong
set {a, b} to {1}
--! -1728 Can’t get item 2 of {1}.

-- SetPropertyOfObject
tell application "Test Desk" to set name of window 1 to "x"
--! -10006 Can’t set name of window "Start" of application "Test Desk" to "x".

-- SetRecordField
set r to {name:"a", n:1}
set n of r to 2
set r's name to "b"
r
--> {name:"b", n:2}

-- SetReservedWord
set then to 1
--! -2741 Expected expression but found “then”.

-- SetSharesLists
set a to {1}
set b to a
set end of b to 2
a
--> {1, 2}

-- SetUnknownField
set r to {a:1}
set b of r to 2
--! -10006 Can’t set b of {a:1} to 2.

-- TextGrowsThroughTwoVariables
set result to "a"
set other to result
set other to other & "b"
set result to result & "c"
{result, other}
--> {"abc", "ab"}

-- Undefined
set x to 1
y
--! -2753 The variable y is not defined.
--@ 11 1

-- ValueIsOfTheLastStatementRun
set x to 1
if false then set x to 2
--> 1

-- ValueOfSet
set x to {1}
--> {1}
