-- Booleans
{"true" as boolean, "FALSE" as boolean, 1 as boolean, true as integer, true as text}
--> {true, false, true, 1, "true"}

-- ClassNameToText
integer as text
--> "integer"

-- EmptyTextToNumber
"" as number
--! -1700 Can’t make "" into type number.

-- FileToText
(POSIX file "/tmp/x") as text
--> "/tmp/x"

-- FilesAreFiles
{POSIX file "/a", file "/b", alias "/c"}
--> {alias "/a", alias "/b", alias "/c"}

-- IntegerToReal
1 as real
--> 1.0

-- ItemToList
{5 as list, "a" as list}
--> {{5}, {"a"}}

-- ListOfOne
{{5} as integer, {"a"} as text, {{7}} as number}
--> {5, "a", 7}

-- ListToNumber
{1, 2} as number
--! -1700 Can’t make {1, 2} into type number.

-- ListToText
{1, "a", true} as text
--> "1atrue"

-- ListToTextWithDelimiters
set AppleScript's text item delimiters to ", "
{1, 2, 3} as text
--> "1, 2, 3"

-- NestedListToText
{1, {2, {3}}} as text
--> "123"

-- NumberToAlias
5 as alias
--! -1700 Can’t make 5 into type alias.

-- NumberToRecord
5 as record
--! -1700 Can’t make 5 into type record.

-- NumbersToText
{1 as text, 1.0 as string, 0.1 as Unicode text, -5 as text}
--> {"1", "1.0", "0.1", "-5"}

-- ObjectToText
tell application "Test Desk" to (window 1) as text
--! -1700 Can’t make window "Start" of application "Test Desk" into type text.

-- PathOfFile
POSIX path of (file "/a b/ü")
--> "/a b/ü"

-- PathOfText
POSIX path of "/a"
--> "/a"

-- PathToFile
"/tmp/x" as alias
--> alias "/tmp/x"

-- RealToIntegerRounds
{3.7 as integer, 2.2 as integer, "3.7" as integer}
--> {4, 2, 4}

-- RealToIntegerTooLarge
1.0E+30 as integer
--! -1700 Can’t make 1.0E+30 into type integer.

-- RecordStaysRecord
{a:1} as record
--> {a:1}

-- RecordToList
{a:1, b:2} as list
--> {1, 2}

-- RecordToText
{a:1} as text
--! -1700 Can’t make {a:1} into type text.

-- TextToInteger
"abc" as integer
--! -1700 Can’t make "abc" into type integer.
--@ 0 16

-- TextToNumbers
{"12" as integer, "1.5" as number, "7" as number, " 3 " as integer}
--> {12, 1.5, 7, 3}

-- UnknownClass
5 as nonsense
--! -2741 Expected class name but found identifier.
