-- AndDoesNotLookFurther
false and 1 div 0 = 1
--> false

-- AndTighterThanOr
true or false and false
--> true

-- AsBindsLooserThanAddition
1 + 2 as text
--> "3"

-- AsBindsLooserThanConcatenation
1 & 2 as text
--> "12"

-- ComparisonLooserThanConcatenation
"a" & "b" = "ab"
--> true

-- ComparisonsDoNotChain
1 = 1 = 1
--! -2741 Expected the end of the line but found “=”.

-- ConcatenationCoercesToText
"x" & 1 & true & 2.0 & {3, 4}
--> "x1true2.034"

-- ConcatenationGoesOnAfterAs
5 as text & "a"
--> "5a"

-- ConcatenationLooserThanSum
"a" & 1 + 1
--> "a2"

-- ConcatenationOfLists
{1} & {2, 3} & 4
--> {1, 2, 3, 4}

-- ConcatenationOfNumbersIsList
1 & "a"
--> {1, "a"}

-- ConcatenationOfRecords
{a:1} & {a:2, b:3}
--> {a:1, b:3}

-- Contains
{"Hello" contains "ELL", {1, 2, 3} contains {2, 3}, {1, 2} contains 2, {a:1, b:2} contains {b:2}, "abc" does not contain "x"}
--> {true, true, true, true, true}

-- DivAndMod
{17 div 5, 17 mod 5, -17 div 5, -17 mod 5}
--> {3, 2, -3, -2}

-- DivByMinusOne
{6 div -1, 6 mod -1, class of (6 div -1), 9007199254740993 div -1}
--> {-6, 0, integer, -9007199254740993}

-- DivOfReals
{7.5 div 2, 7.5 mod 2}
--> {3, 1.5}

-- DivideByZero
1 / 0
--! -2701 Can’t divide 1 by zero.
--@ 0 5

-- DivisionYieldsReal
6 / 2
--> 3.0

-- DoubleNegation
- -3
--> 3

-- EqualityOfNumbersAcrossClasses
1 = 1.0
--> true

-- IsIn
{"b" is in "abc", 4 is in {1, 2}, 4 is not in {1, 2}, 1 is contained by {1}, 1 is not contained by {1}}
--> {true, false, true, true, false}

-- ListsPartByPart
{{1, "A"} = {1, "a"}, {1} = {1, 2}}
--> {true, false}

-- MinusBindsTighterThanPower
-2 ^ 2
--> 4.0

-- ModByZero
1.5 mod 0
--! -2701 Can’t divide 1.5 by zero.

-- ModOfTheLeastInteger
set least to -9223372036854775807 - 1
{least mod 3, least div 3, least mod -1}
--> {-2, -3074457345618258602, 0}

-- NotLooserThanComparison
not 1 = 2
--> true

-- NotNot
not not true
--> true

-- NotOfNumber
not 5
--! -1700 Can’t make 5 into type boolean.

-- OrDoesNotLookFurther
true or 1 div 0 = 1
--> true

-- OrderDoesNotChain
1 < 2 < 3
--! -2741 Expected the end of the line but found “<”.
--@ 6 1

-- OrderOfRecords
{a:1} < 2
--! -1700 Can’t make {a:1} into type number.

-- OverflowBecomesReal
9223372036854775807 + 1
--> 9.223372036854776E+18

-- PowerTooLarge
10.0 ^ 1000
--! -2702 The result of a numeric operation was too large.

-- PowersFromTheRight
2 ^ 3 ^ 2
--> 512.0

-- ProductsBeforeSums
1 + 2 * 3
--> 7

-- RecordsByLabel
{a:1, b:2} = {b:2, a:1}
--> true

-- RecordsWithOtherValues
{{a:1} = {a:2}, {a:1, b:2} = {a:1, b:3}, {a:1} = {b:1}, {a:1, b:2} contains {b:3}, {a:1, b:2} contains {c:2}}
--> {false, false, false, false, false}

-- StartsAndEnds
{"abc" starts with "AB", "abc" begins with "b", "abc" ends with "c", {1, 2, 3} starts with {1, 2}, {1, 2, 3} ends with 3, {1} ends with {0, 1}}
--> {true, false, true, true, true, false}

-- SumOfText
1 + "x"
--! -1700 Can’t make "x" into type number.
--@ 0 7

-- SumsFromTheLeft
10 - 4 - 3
--> 3

-- SymbolsOfInequality
{1 ≠ 2, 1 /= 1}
--> {true, false}

-- SymbolsOfOrder
{1 < 2, 1 > 2, 1 <= 1, 1 >= 2, 1 ≤ 0, 2 ≥ 2}
--> {true, false, true, false, false, true}

-- TextCountsAsNumber
"2" + 3
--> 5

-- TextIgnoresCase
{"ABC" = "abc", "É" = "é", "ß" = "SS"}
--> {true, true, false}

-- TextIsNoNumber
"1" = 1
--> false

-- UnaryMinusOfExpression
-(1 + 2)
--> -3

-- WordsInAnyCase
{1 IS 1, 7 Mod 2, "ab" CONTAINS "b", 1 Is Less THAN 2}
--> {true, 1, true, true}

-- WordsOfEquality
{1 is 1, 1 equals 1, 1 is equal to 2, 1 is not 2, 1 isn't 1, 1 is not equal to 1, 1 does not equal 2}
--> {true, true, false, true, false, false, true}

-- WordsOfOrder
{1 is less than 2, 1 is greater than 2, 1 is less than or equal to 1, 1 is not less than 2, "a" comes before "b", "a" comes after "b", 3 is greater than or equal to 4}
--> {true, false, true, false, true, false, false}
