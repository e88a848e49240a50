#include <string>

#include <gtest/gtest.h>

#include "HostStandIn/HostURL.h"

namespace {

using HostStandIn::isHostURL;

TEST(HostURL, HasTheHostsSchemeInAnyCase) {
  EXPECT_TRUE(isHostURL("deskloom://gleanery/%5B%5D"));
  EXPECT_TRUE(isHostURL("DeskLoom://gleanery"));
  EXPECT_FALSE(isHostURL("deskloomplugin://run"));
  EXPECT_FALSE(isHostURL("http://deskloom:80/"));
  EXPECT_FALSE(isHostURL("deskloo"));
  EXPECT_FALSE(isHostURL(""));
}

TEST(HostURL, IsOneLine) {
  EXPECT_FALSE(isHostURL("deskloom://a\nb"));
  EXPECT_FALSE(isHostURL("deskloom://a\rb"));
  EXPECT_FALSE(isHostURL("deskloom://a\n"));
  EXPECT_FALSE(
      isHostURL("deskloom://a\xE2\x80\xA8"
                "b"));
  EXPECT_FALSE(isHostURL("deskloom://a\x1B[2J"));
}

TEST(HostURL, ChangesNoDirectionOfWriting) {
  EXPECT_FALSE(isHostURL("deskloom://a\u202Eb"));
  EXPECT_FALSE(isHostURL("deskloom://a\u2066b"));
  EXPECT_TRUE(isHostURL("deskloom://größe"));
}

TEST(HostURL, NeedNotBeWellFormedOtherwise) {
  EXPECT_TRUE(isHostURL("deskloom://a b|%5"));
}

}  // namespace
