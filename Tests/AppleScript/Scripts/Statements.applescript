-- CountCommand
{count {1, 2}, count of "abc", number of {}, count {a:1}}
--> {2, 3, 0, 1}

-- EndIsMissing
repeat 2 times
1
--! -2741 Expected “end” but found end of script.

-- EndWithoutBlock
1
end repeat
--! -2741 Expected expression but found “end”.

-- Error
error "Bad thing" number 42
--! 42 Bad thing
--@ 0 27

-- ErrorCanceled
error number -128
--! -128 User canceled.

-- ErrorOfRecord
error {a:1}
--! -1700 Can’t make {a:1} into type text.
--@ 6 5

-- ErrorWithoutNumber
error "Bad thing"
--! -2700 Bad thing

-- ErrorWithoutText
error number 17
--! 17 An error of type 17 has occurred.

-- ErrorsOfApplicationsAreCaught
try
tell application "Closed Desk" to count windows
on error number n
n
end try
--> -600

-- ExitLeavesTheInnerLoop
set n to 0
repeat 3 times
repeat
set n to n + 1
exit repeat
end repeat
end repeat
n
--> 3

-- GetStatement
get 1 + 2
--> 3

-- If
if 1 = 2 then
1
else if 2 = 2 then
2
else
3
end if
--> 2

-- IfElse
if false
1
else
3
end
--> 3

-- IfElseOnOneLine
if false then 1 else 2
--> 2

-- IfOfText
if "maybe" then 1
--! -1700 Can’t make "maybe" into type boolean.
--@ 3 7

-- IfOnOneLine
set x to 1
if x = 1 then set x to 5
x
--> 5

-- ItemsAddedInALoopAreNotVisited
set l to {1, 2}
repeat with x in l
set end of l to 0
end repeat
count l
--> 4

-- LoopVariableInSourceForm
repeat with x in {"a"}
get x
end repeat
--> item 1 of {"a"}

-- LoopVariableIsNoPlainValue
set l to {}
repeat with x in {1}
set end of l to x = 1
set end of l to contents of x = 1
end repeat
l
--> {false, true}

-- RecordsInALoop
set t to ""
repeat with r in {{name:"a"}, {name:"b"}}
set t to t & name of r
end repeat
t
--> "ab"

-- RepeatBy
set t to ""
repeat with i from 10 to 1 by -3
set t to t & i & " "
end repeat
t
--> "10 7 4 1 "

-- RepeatByReal
set l to {}
repeat with i from 0 to 1 by 0.5
set end of l to i
end repeat
l
--> {0, 0.5, 1.0}

-- RepeatByZero
repeat with i from 1 to 2 by 0
end repeat
--! -2700 Can’t repeat in steps of 0.
--@ 29 1

-- RepeatForever
set n to 0
repeat
set n to n + 1
if n = 7 then exit repeat
end repeat
n
--> 7

-- RepeatFromTo
set t to ""
repeat with i from 1 to 4
set t to t & i
end repeat
t
--> "1234"

-- RepeatIn
set t to 0
repeat with x in {1, 2, 3}
set t to t + x
end repeat
t
--> 6

-- RepeatInHoldsReferences
set l to {1, 2}
repeat with x in l
set contents of x to x * 10
end repeat
l
--> {10, 20}

-- RepeatInNumber
repeat with x in 5
end repeat
--! -1728 Can’t get every item of 5.

-- RepeatInText
set l to {}
repeat with c in "añb"
set end of l to contents of c
end repeat
l
--> {"a", "ñ", "b"}

-- RepeatOverNothing
set t to "x"
repeat with i from 1 to 0
set t to "y"
end repeat
t
--> "x"

-- RepeatTextTimes
repeat "many" times
end repeat
--! -1700 Can’t make "many" into type integer.
--@ 7 6

-- RepeatTimes
set n to 0
repeat 3 times
set n to n + 2
end repeat
n
--> 6

-- RepeatTimesNone
set n to 0
repeat 0 times
set n to 1
end repeat
n
--> 0

-- RepeatUntil
set n to 5
repeat until n = 0
set n to n - 1
end repeat
n
--> 0

-- RepeatWhile
set n to 1
repeat while n < 100
set n to n * 2
end repeat
n
--> 128

-- ReturnEndsTheScript
return 1
2
--> 1

-- ReturnNothing
5
return
--> nothing

-- ReturnOutOfALoop
repeat with i from 1 to 5
if i = 3 then return i
end repeat
--> 3

-- ThenIsMissing
if true 1
--! -2741 Expected end of line but found number.

-- TryCatches
try
1 div 0
on error m number n
{m, n}
end try
--> {"Can’t divide 1 by zero.", -2701}

-- TryWithoutError
try
7
on error
8
end try
--> 7

-- TryWithoutHandler
set x to 1
try
error "no"
end try
x
--> 1

-- WrongEnd
repeat 2 times
1
end if
--! -2741 Expected end of line but found “if”.
