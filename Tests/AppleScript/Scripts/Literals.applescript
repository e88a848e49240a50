-- Booleans
{true, false}
--> {true, false}

-- ClassNames
{integer, text, string, list}
--> {integer, text, text, list}

-- ClassOfConstants
{class of yes, class of no, class of ask}
--> {constant, constant, constant}

-- Integer
42
--> 42

-- IntegerTooLargeBecomesReal
9223372036854775808
--> 9.223372036854776E+18

-- LargeReal
1.0E+20
--> 1.0E+20

-- MissingValue
missing value
--> missing value

-- NamedCharacters
linefeed & return & tab & space & quote
--> "\n\r\t \""

-- NegativeNumbers
{-1, -2.5}
--> {-1, -2.5}

-- NestedList
{1, {2, {}}, "x"}
--> {1, {2, {}}, "x"}

-- Pi
pi
--> 3.141592653589793

-- Real
2.50
--> 2.5

-- RealFromTenThousandHasAnExponent
12345.5
--> 1.23455E+4

-- RealWithExponent
1.5e3
--> 1500.0

-- Record
{name:"x", size:{1, 2}}
--> {name:"x", size:{1, 2}}

-- RecordWithBarredLabel
{|my label|:1, |a-b|:2}
--> {my label:1, |a-b|:2}

-- SmallReal
0.00001
--> 1.0E-5

-- TenthIsWrittenPlainly
0.1
--> 0.1

-- TextOverTwoLines
"a
b"
--> "a\nb"

-- TextWithEscapes
"a\"b\\c\n\r\t"
--> "a\"b\\c\n\r\t"

-- TextWithOtherLetters
"naïve 日本 😀"
--> "naïve 日本 😀"
