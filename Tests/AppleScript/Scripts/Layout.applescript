-- BarredIdentifier
set |two words| to 3
|two words| + 1
--> 4

-- BarredIdentifierIsNoKeyword
set |repeat| to 1
|repeat|
--> 1

-- Comments
-- one
# two
(* three (* nested *) still *)
1 -- here too
--> 1

-- ContinuedLine
1 + ¬
  2
--> 3

-- IdentifiersInAnyCase
set Foo to 1
fOO
--> 1

-- KeywordsInAnyCase
TELL Application "test desk" TO GET NUMBER OF Windows
--> 2

-- NothingAtAll
-- nothing
--> nothing

-- TheIsNoise
the length of the {1, 2}
--> 2
