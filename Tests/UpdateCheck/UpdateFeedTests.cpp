#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/UpdateCheck/HTTPSServer.h"
#include "Tests/UpdateCheck/SigningKey.h"
#include "UpdateCheck/UpdateFeed.h"

namespace {

using namespace std::string_literals;
using Platform::URL;
using testing::HasSubstr;
using testing::StartsWith;
using UpdateCheck::PublicKey;
using UpdateCheck::UpdateSettings;

// The second test of RFC 8032, 7.1: one byte, 0x72.
const std::string key = "PUAXw+hDiVqStwqnTRt+vJyYLM8uxJaMwM1V8Sr0Zgw=";
const std::string signature =
    "kqAJqfDUyrhyDoILX2QlQKKye1QWUD+Ps3YiI+vbadoIWsHkPhWZbkWPNhPQ8R2MOHsurrQwKu6wDSkWErsMAA==";
const std::string message = "\x72";

// The first one of the same section: no bytes at all, by another key.
const std::string otherKey = "11qYAYKxCrfVS/7TyWQHOg7hcvPapiMlrwIaaPcHURo=";
const std::string signatureOfNothing =
    "5VZDAMNgrHKQhuLMgG6CioSHfx645dl02HPgZSJJAVVfuIIVkKM7rMYeOXAc+bRr0lv18FlbviRlUUFDjnoQCw==";

std::string verify(const std::string& withKey, const std::string& bytes, const std::string& claimed) {
  const auto verified = PublicKey::parse(withKey)->verify(bytes, claimed);
  return verified ? "valid" : verified.error();
}

TEST(PublicKey, VerifiesASignature) {
  EXPECT_EQ(verify(key, message, signature), "valid");
  EXPECT_EQ(verify(otherKey, "", signatureOfNothing), "valid");
}

TEST(PublicKey, VerifiesASignatureWithLineBreaks) {
  EXPECT_EQ(verify(key, message, signature + "\n"), "valid");
  EXPECT_EQ(verify(key, message, signature.substr(0, 76) + "\r\n" + signature.substr(76) + "\r\n"), "valid");
}

TEST(PublicKey, RefusesOtherBytes) {
  EXPECT_EQ(verify(key, "\x73", signature), "its signature does not match");
  EXPECT_EQ(verify(key, "\x72\x72", signature), "its signature does not match");
  EXPECT_EQ(verify(key, "", signature), "its signature does not match");
}

TEST(PublicKey, RefusesTheSignatureOfAnotherKey) {
  EXPECT_EQ(verify(otherKey, message, signature), "its signature does not match");
}

TEST(PublicKey, RefusesAChangedSignature) {
  std::string changed = signature;
  changed[3] = 'K';
  EXPECT_EQ(verify(key, message, changed), "its signature does not match");
}

TEST(PublicKey, RefusesWhatIsNotASignature) {
  for (const std::string& text : {""s, "!"s, "\n"s, key, signature + "AAAA", signature + '\n' + signature,
                                  signature.substr(1), signature.substr(0, 86), ' ' + signature})
    EXPECT_EQ(verify(key, message, text), "its signature is not one of 64 bytes in base64") << text;
}

TEST(PublicKey, IsThirtyTwoBytesInBase64) {
  for (const std::string& text :
       {""s, "key"s, signature, key.substr(0, 43), key + "=", key + "\n", "====" + key, std::string(44, '\0')})
    EXPECT_EQ(PublicKey::parse(text).error(), "PublicKey is not a key of 32 bytes in base64") << text;
}

UpdateSettings settingsFor(const URL& feed) {
  return {.identifier = "com.example.Plugin",
          .name = "Plugin",
          .version = "1.0",
          .feed = feed,
          .interval = std::chrono::seconds(0),
          .publicKey = std::nullopt};
}

/// A feed in a folder of the test's own.
class UpdateFeedTest : public testing::Test {
 protected:
  /// The feed's text, or the error.
  [[nodiscard]] std::string load() const {
    const auto feed = UpdateCheck::loadFeed(settings);
    return feed ? *feed : "failure: " + feed.error();
  }

  TestSupport::TemporaryFolder folder;
  UpdateSettings settings = settingsFor(URL::fileURL(folder.path() / "appcast.xml"));
  SigningKey signingKey;
};

TEST_F(UpdateFeedTest, IsLoaded) {
  folder.write("appcast.xml", "<rss/>");
  EXPECT_EQ(load(), "<rss/>");
}

TEST_F(UpdateFeedTest, SaysWhyItCannotBeLoaded) {
  EXPECT_EQ(load(), "failure: the feed cannot be loaded: No such file or directory");
  folder.write("appcast.xml", std::string((1UL << 20) + 1, ' '));
  EXPECT_EQ(load(), "failure: the feed cannot be loaded: it has more than 1048576 bytes");
}

TEST_F(UpdateFeedTest, NeedsNoSignatureWithoutAKey) {
  folder.write("appcast.xml", "<rss/>");
  folder.write("appcast.xml.sig", "nonsense");
  EXPECT_EQ(load(), "<rss/>");
}

TEST_F(UpdateFeedTest, IsVerifiedWithAKey) {
  settings.publicKey = signingKey.publicKey();
  for (const std::string& text : {"<rss/>"s, ""s, "\r\n<rss/>\n"s, std::string(1UL << 20, 'x')}) {
    folder.write("appcast.xml", text);
    folder.write("appcast.xml.sig", signingKey.sign(text) + '\n');
    EXPECT_EQ(load(), text);
  }
}

TEST_F(UpdateFeedTest, IsRefusedIfOneByteIsNotTheSignedOne) {
  settings.publicKey = signingKey.publicKey();
  folder.write("appcast.xml.sig", signingKey.sign("<rss/>"));
  for (const char* text : {"<rss />", "<rsz/>", "<rss/>\n", ""}) {
    folder.write("appcast.xml", text);
    EXPECT_EQ(load(), "failure: the feed cannot be verified: its signature does not match") << text;
  }
}

TEST_F(UpdateFeedTest, IsRefusedWithTheSignatureOfAnotherKey) {
  folder.write("appcast.xml", "<rss/>");
  folder.write("appcast.xml.sig", signingKey.sign("<rss/>"));
  settings.publicKey = otherKey;
  EXPECT_EQ(load(), "failure: the feed cannot be verified: its signature does not match");
}

TEST_F(UpdateFeedTest, IsRefusedWithAMalformedSignature) {
  settings.publicKey = signingKey.publicKey();
  folder.write("appcast.xml", "<rss/>");
  for (const std::string& text : {""s, "nonsense"s, signingKey.sign("<rss/>") + "AAAA"}) {
    folder.write("appcast.xml.sig", text);
    EXPECT_EQ(load(), "failure: the feed cannot be verified: its signature is not one of 64 bytes in base64");
  }
}

TEST_F(UpdateFeedTest, IsRefusedWithoutItsSignature) {
  settings.publicKey = signingKey.publicKey();
  folder.write("appcast.xml", "<rss/>");
  EXPECT_EQ(load(), "failure: the feed cannot be verified: its signature cannot be loaded: No such file or directory");
}

TEST_F(UpdateFeedTest, IsRefusedWithASignatureThatIsTooLong) {
  settings.publicKey = signingKey.publicKey();
  folder.write("appcast.xml", "<rss/>");
  folder.write("appcast.xml.sig", signingKey.sign("<rss/>") + std::string(1024, '\n'));
  EXPECT_EQ(load(),
            "failure: the feed cannot be verified: its signature cannot be loaded: it has more than 1024 bytes");
}

TEST_F(UpdateFeedTest, IsNotAskedForWithAMalformedKey) {
  for (const std::string text : {"", "nonsense"}) {
    settings.publicKey = text;
    EXPECT_EQ(load(), "failure: the feed cannot be verified: PublicKey is not a key of 32 bytes in base64");
  }
}

/// The commands are those of docs/plug-in-guide.md.
TEST_F(UpdateFeedTest, CanBeSignedWithOpenSSL) {
  folder.write("appcast.xml", "<rss/>");
  ASSERT_EQ(TestSupport::run({"env", "-C", folder.path(), "sh", "-euc", R"(
openssl genpkey -algorithm ed25519 -out feed-key.pem
openssl pkey -in feed-key.pem -pubout -outform DER | tail --bytes=32 | base64 >public-key
openssl pkeyutl -sign -inkey feed-key.pem -rawin -in appcast.xml | base64 >appcast.xml.sig)"}),
            0);
  std::ifstream publicKey(folder.path() / "public-key");
  std::string line;
  std::getline(publicKey, line);
  settings.publicKey = line;
  EXPECT_EQ(load(), "<rss/>");
}

/// A feed on a web server of the test's own.
class WebFeedTest : public UpdateFeedTest {
 protected:
  WebFeedTest() {
    settings.feed = server.url("appcast.xml");
    server.serve("appcast.xml", "<rss/>");
  }

  HTTPSServer server;
};

TEST_F(WebFeedTest, IsLoadedAndVerified) {
  const TestSupport::EnvironmentVariable trust("SSL_CERT_FILE", server.certificate());
  settings.publicKey = signingKey.publicKey();
  server.serve("appcast.xml.sig", signingKey.sign("<rss/>"));
  EXPECT_EQ(load(), "<rss/>");
  server.serve("appcast.xml", "<rss />");
  EXPECT_EQ(load(), "failure: the feed cannot be verified: its signature does not match");
}

TEST_F(WebFeedTest, IsRefusedWithoutItsSignature) {
  const TestSupport::EnvironmentVariable trust("SSL_CERT_FILE", server.certificate());
  settings.publicKey = signingKey.publicKey();
  server.serve("appcast.xml.sig", "404 Not Found", {});
  EXPECT_EQ(load(),
            "failure: the feed cannot be verified: its signature cannot be loaded: The requested URL returned error: "
            "404");
}

TEST_F(WebFeedTest, IsNotLoadedFromAServerWhoseCertificateNoAuthoritySigned) {
  EXPECT_THAT(load(), testing::AllOf(StartsWith("failure: the feed cannot be loaded: "), HasSubstr("certificate")));
}

}  // namespace
