-- BarredNameGoesOn
foo |ä b|
--! -2741 Expected the end of the line but found “|ä b|”.

-- BraceMissing
{1, 2
--! -2741 Expected “}” but found the end of the line.

-- ElseGoesOn
if false
	4
else 3
	5
end if
--! -2741 Expected the end of the line but found “3”.

-- ElseIfGoesOn
if false then
	4
else if true 3
	5
end if
--! -2741 Expected the end of the line but found “3”.

-- EveryWhat
every nonsense
--! -2741 Expected the name of a class but found “nonsense”.

-- IfGoesOn
if true 3
	4
end if
--! -2741 Expected the end of the line but found “3”.

-- ListItemMissing
{1, }
--! -2741 Expected an expression but found “}”.

-- LoneReservedWord
whose
--! -2741 Expected an expression but found “whose”.

-- LongNameGoesOn
foo abcdefghijabcdefghijabcdefghijabcdefghijabcdefghijabcdefghij
--! -2741 Expected the end of the line but found “abcdefghijabcdefghijabcdefghijabcdefghijabcdefghij…”.

-- OnErrorGoesOn
try
	error "a"
on error m 3
	m
end try
--! -2741 Expected the end of the line but found “3”.

-- OperandMissing
1 +
--! -2741 Expected an expression but found the end of the line.

-- OrdinalGoesOn
foo 2nd
--! -2741 Expected the end of the line but found “2nd”.

-- ParenthesisMissing
(1 + 2
--! -2741 Expected “)” but found the end of the line.

-- PossessiveOfNothing
{1}'s
--! -2741 Expected a property but found the end of the line.

-- RecordMixedWithList
{a:1, 2}
--! -2741 Expected a label but found “2”.

-- TellGoesOn
tell {1, 2} 3
	length
end tell
--! -2741 Expected the end of the line but found “3”.

-- TextGoesOn
foo "a\"b"
--! -2741 Expected the end of the line but found "a\"b".

-- ToMissing
set x 5
--! -2741 Expected “to” but found “5”.

-- TryGoesOn
try 3
	4
end try
--! -2741 Expected the end of the line but found “3”.

-- TwoIdentifiers
foo bar
--! -2741 Expected the end of the line but found “bar”.

-- TwoNumbers
1 2
--! -2740 A number can’t go after this number.

-- UnfinishedBar
set |a to 1
--! -2741 Expected “|” but found the end of the line.

-- UnknownCharacter
1 + @
--! -2741 Expected an expression but found “@”.

-- UnknownEscape
"a\d"
--! -2741 After a backslash, a text can have only a quote, another backslash, n, r or t.
