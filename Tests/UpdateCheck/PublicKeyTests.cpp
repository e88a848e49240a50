#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "UpdateCheck/PublicKey.h"

namespace {

using UpdateCheck::PublicKey;

// The second test of RFC 8032, 7.1: one byte, 0x72.
const std::string key = "PUAXw+hDiVqStwqnTRt+vJyYLM8uxJaMwM1V8Sr0Zgw=";
const std::string signature =
    "kqAJqfDUyrhyDoILX2QlQKKye1QWUD+Ps3YiI+vbadoIWsHkPhWZbkWPNhPQ8R2MOHsurrQwKu6wDSkWErsMAA==";
const std::vector<unsigned char> message = {0x72};

// The first one of the same section: no bytes at all, by another key.
const std::string otherKey = "11qYAYKxCrfVS/7TyWQHOg7hcvPapiMlrwIaaPcHURo=";
const std::string signatureOfNothing =
    "5VZDAMNgrHKQhuLMgG6CioSHfx645dl02HPgZSJJAVVfuIIVkKM7rMYeOXAc+bRr0lv18FlbviRlUUFDjnoQCw==";

std::string verify(const std::string& withKey, const std::vector<unsigned char>& bytes, const std::string& claimed) {
  const auto verified = PublicKey::parse(withKey)->verify(bytes, claimed);
  return verified ? "valid" : verified.error();
}

TEST(PublicKey, VerifiesASignature) {
  EXPECT_EQ(verify(key, message, signature), "valid");
  EXPECT_EQ(verify(otherKey, {}, signatureOfNothing), "valid");
}

TEST(PublicKey, RefusesOtherBytes) {
  EXPECT_EQ(verify(key, {0x73}, signature), "its signature does not match");
  EXPECT_EQ(verify(key, {0x72, 0x72}, signature), "its signature does not match");
  EXPECT_EQ(verify(key, {}, signature), "its signature does not match");
}

TEST(PublicKey, RefusesTheSignatureOfAnotherKey) {
  EXPECT_EQ(verify(otherKey, message, signature), "its signature does not match");
}

TEST(PublicKey, RefusesASignatureThatWasTouched) {
  std::string touched = signature;
  touched[3] = 'K';
  EXPECT_EQ(verify(key, message, touched), "its signature does not match");
}

TEST(PublicKey, RefusesWhatIsNoSignature) {
  for (const std::string& text : {std::string(), std::string("!"), key, signature + "AAAA", signature.substr(1),
                                  signature.substr(0, 86), ' ' + signature})
    EXPECT_EQ(verify(key, message, text), "its signature is not one of 64 bytes in base64") << text;
}

TEST(PublicKey, IsThirtyTwoBytesInBase64) {
  for (const std::string& text : {std::string(), std::string("key"), signature, key.substr(0, 43), key + "=",
                                  key + "\n", "====" + key, std::string(44, '\0')})
    EXPECT_EQ(PublicKey::parse(text).error(), "PublicKey is not a key of 32 bytes in base64") << text;
}

}  // namespace
