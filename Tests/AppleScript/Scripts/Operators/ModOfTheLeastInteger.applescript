set least to -9223372036854775807 - 1
{least mod 3, least div 3, least mod -1}
--> {-2, -3074457345618258602, 0}
