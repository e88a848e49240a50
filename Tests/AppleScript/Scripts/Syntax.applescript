-- BraceMissing
{1, 2
--! -2741 Expected “}” but found end of line.

-- ElseGoesOn
if false
	4
else 3
	5
end if
--! -2741 Expected end of line but found number.

-- ElseIfGoesOn
if false then
	4
else if true 3
	5
end if
--! -2741 Expected end of line but found number.

-- EveryWhat
every nonsense
--! -2741 Expected class name but found identifier.

-- IfGoesOn
if true 3
	4
end if
--! -2741 Expected end of line but found number.

-- ListItemMissing
{1, }
--! -2741 Expected expression but found “}”.

-- LoneReservedWord
whose
--! -2741 Expected expression but found “whose”.

-- OnErrorGoesOn
try
	error "a"
on error m 3
	m
end try
--! -2741 Expected end of line but found number.

-- OperandMissing
1 +
--! -2741 Expected expression but found end of line.

-- ParenthesisMissing
(1 + 2
--! -2741 Expected “)” but found end of line.

-- PossessiveOfNothing
{1}'s
--! -2741 Expected property but found end of line.

-- RecordMixedWithList
{a:1, 2}
--! -2741 Expected label but found number.

-- TellGoesOn
tell {1, 2} 3
	length
end tell
--! -2741 Expected end of line but found number.

-- ToMissing
set x 5
--! -2741 Expected “to” but found number.

-- TryGoesOn
try 3
	4
end try
--! -2741 Expected end of line but found number.

-- TwoIdentifiers
foo bar
--! -2741 Expected end of line but found identifier.

-- TwoNumbers
1 2
--! -2740 A number can’t go after this number.

-- UnfinishedBar
set |a to 1
--! -2741 Expected “|” but found end of line.

-- UnknownCharacter
1 + @
--! -2741 Expected expression but found unknown token.

-- UnknownEscape
"a\d"
--! -2741 Expected “"” but found unknown token.
