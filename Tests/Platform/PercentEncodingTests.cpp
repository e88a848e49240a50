#include <gtest/gtest.h>

#include "Platform/Text/PercentEncoding.h"

using Platform::percentDecoded;
using Platform::percentEncodedPath;

TEST(PercentEncoding, LeavesThePathAllowedSetAsItIs) {
  const std::string allowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,;=:@/";
  EXPECT_EQ(percentEncodedPath(allowed), allowed);
}

TEST(PercentEncoding, EscapesEveryOtherByteInUpperCaseHexadecimal) {
  EXPECT_EQ(percentEncodedPath("[{\"a\":1}] \\%é\x7F"), "%5B%7B%22a%22:1%7D%5D%20%5C%25%C3%A9%7F");
  EXPECT_EQ(percentEncodedPath(std::string_view("\0", 1)), "%00");
}

TEST(PercentEncoding, DecodesWhatItEncodes) {
  std::string every;
  for (int byte = 0; byte < 256; ++byte)
    every += static_cast<char>(byte);
  EXPECT_EQ(percentDecoded(percentEncodedPath(every)), every);
}

TEST(PercentEncoding, LeavesBrokenEscapesAsTheyAreWhenDecoding) {
  EXPECT_EQ(percentDecoded("%"), "%");
  EXPECT_EQ(percentDecoded("100%25 %4 %zz %2f"), "100% %4 %zz /");
}
