-- Characters
{character 2 of "añb", characters of "añ", characters 1 thru 2 of "abc", last character of "abc"}
--> {"ñ", {"a", "ñ"}, {"a", "b"}, "c"}

-- ClassOf
{class of 1, class of 1.0, class of "a", class of {}, class of {a:1}, class of true, class of integer, class of (file "/a")}
--> {integer, real, text, list, record, boolean, class, alias}

-- CountOfANumber
count 5
--! -1708 5 doesn’t understand the “count” message.

-- CountOfNestedEvery
count of words of paragraphs of "a b
c"
--> {2, 1}

-- DistributesOverEvery
length of every item of {"a", "bcd"}
--> {1, 3}

-- ElementsByClass
{every text of {1, "a", 2.0, "b"}, numbers of {1, "a", 2.0}, integer 1 of {"x", 5}, class of every text of {"a"}}
--> {{"a", "b"}, {1, 2.0}, 5, {text}}

-- EndIsNoValue
set l to {1}
set x to end of l
--! -1728 Can’t get end of {1}.

-- EveryItemIsANewList
set l to {1}
set m to every item of l
set end of m to 2
l
--> {1}

-- ExistsItem
{exists item 2 of {1}, exists item 1 of {1}, item 3 of {} exists}
--> {false, true, false}

-- FieldInAnyCase
set r to {Foo:1}
FOO of r
--> 1

-- FieldMissing
set r to {a:1}
foo of r
--! -1728 Can’t get foo of {a:1}.

-- FieldOfRecord
set r to {name:"n", |my label|:2, plain:3}
{name of r, |my label| of r, plain of r}
--> {"n", 2, 3}

-- FilterByClass
items of {1, "a", {}} whose class is text
--> {"a"}

-- FilterOfList
every item of {1, 5, 2, 7} whose it > 2
--> {5, 7}

-- FilterOfOneItem
item 1 of {1} whose it > 2
--! -2741 Expected end of line but found “whose”.

-- FilterOfRecords
name of every item of {{name:"a", n:1}, {name:"b", n:2}} where n of it > 1
--> {"b"}

-- FilterWithoutElements
(1) whose it > 2
--! -2741 Expected end of line but found “whose”.

-- FirstOfFilter
first item of {1, 5, 7} whose it > 2
--> 5

-- IdOfText
{id of "A", id of "añ"}
--> {65, {97, 241}}

-- InnerReferenceIsNamedToo
set l to {{1}}
item 7 of item 1 of l
--! -1728 Can’t get item 7 of item 1 of {{1}}.

-- ItemByExpression
item (1 + 1) of {"a", "b"}
--> "b"

-- ItemByNumber
item 2 of {"a", "b"}
--> "b"

-- ItemByVariable
set i to 2
item i of {"a", "b"}
--> "b"

-- ItemFromTheEnd
item -1 of {"a", "b"}
--> "b"

-- ItemOutOfRange
item 5 of {1, 2}
--! -1728 Can’t get item 5 of {1, 2}.
--@ 0 16

-- ItemZero
set l to {1}
item 0 of l
--! -1728 Can’t get item 0 of {1}.

-- LengthReverseRest
set l to {1, 2, 3}
{length of l, reverse of l, rest of l, length of "añ"}
--> {3, {3, 2, 1}, {2, 3}, 2}

-- LongValuesAreCutShort
set l to {}
repeat 200 times
set end of l to 7
end repeat
item 201 of l
--! -1728 Can’t get item 201 of {7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7….

-- ManyLinks
set l to {{{{{5}}}}}
item 1 of item 1 of item 1 of item 1 of item 1 of l
--> 5

-- NestedEvery
words of paragraphs of "a b
c"
--> {{"a", "b"}, {"c"}}

-- NoSuchLabelledItem
character 4 of "abc"
--! -1728 Can’t get character 4 of "abc".

-- OfANumber
1 of {1}
--! -2741 Expected end of line but found “of”.

-- Ordinals
set l to {1, 2, 3, 4, 5}
{first item of l, second item of l, 3rd item of l, last item of l, middle item of l, front item of l}
--> {1, 2, 3, 5, 3, 1}

-- Paragraphs
paragraphs of "a\nb\r\nc\rd\n"
--> {"a", "b", "c", "d", ""}

-- Possessive
{1, 2, 3}'s length
--> 3

-- PossessiveChain
set r to {a:{b:{10, 20}}}
r's a's b's item 2
--> 20

-- PossessiveInsideOf
set r to {a:{b:{10, 20}}}
item 1 of r's a's b
--> 10

-- PropertyOfPlainList
set l to {{a:1}, {a:2}}
a of l
--! -1728 Can’t get a of {{a:1}, {a:2}}.

-- RangeOutOfRange
set l to {1, 2}
items 2 thru 9 of l
--! -1728 Can’t get items 2 thru 9 of {1, 2}.

-- Ranges
{items 2 thru 3 of {1, 2, 3, 4}, items 2 through -1 of {1, 2, 3}, items -2 thru -1 of {1, 2, 3}}
--> {{2, 3}, {2, 3}, {2, 3}}

-- RestOfNothing
set l to {}
rest of l
--! -1728 Can’t get rest of {}.

-- ShrunkenListInLoop
set l to {{1}}
set x to item 1 of l
foo of x
--! -1728 Can’t get foo of {1}.

-- SomeItem
some item of {7, 7}
--> 7

-- TextItems
set AppleScript's text item delimiters to {", ", ";"}
{text items of "a, b;c", text item 2 of "a, b"}
--> {{"a", "b", "c"}, "b"}

-- TextRange
text 2 thru 4 of "añbcd"
--> "ñbc"

-- Words
{words of "Hello, big  world!", word 2 of "it isn't 42", count words of ""}
--> {{"Hello", "big", "world"}, "isn't", 0}

-- WordsWithSigns
words of "1ª 2º 3µ «x» 2×3 8÷2 §4"
--> {"1ª", "2º", "3µ", "x", "2", "3", "8", "2", "4"}
