#include <string>

#include <gtest/gtest.h>

#include "Tests/Support/TemporaryFolder.h"
#include "UpdateCheck/XMLReader.h"

namespace {

using UpdateCheck::maximumXMLDepth;
using UpdateCheck::XMLHandler;

/// Records the calls that it gets.
class Transcript : public XMLHandler {
 public:
  void startElement(std::string_view name, const Attributes& attributes) override {
    text += '<' + std::string(name);
    for (const auto& [attribute, value] : attributes)
      text += ' ' + attribute + '=' + value;
    text += '>';
  }
  void endElement() override { text += "</>"; }
  void appendText(std::string_view piece) override { text += piece; }

  std::string text;
};

/// The calls for a document, or the error.
std::string read(std::string_view document) {
  Transcript transcript;
  const auto read = UpdateCheck::readXML(document, transcript);
  return read ? transcript.text : "failure: " + read.error();
}

std::string nested(int depth) {
  std::string text;
  for (int level = 0; level < depth; ++level)
    text += "<a>";
  for (int level = 0; level < depth; ++level)
    text += "</a>";
  return text;
}

TEST(XMLReader, ReportsElementsAttributesAndText) {
  EXPECT_EQ(read("<a b='1' c=''>x<d/>y</a>"), "<a b=1 c=>x<d></>y</>");
}

TEST(XMLReader, ResolvesNamespacesRegardlessOfTheirPrefix) {
  EXPECT_EQ(read("<p:a xmlns:p='urn:n' p:b='1' b='2'/>"), "<urn:n a b=2 urn:n b=1></>");
  EXPECT_EQ(read("<a xmlns='urn:n'/>"), "<urn:n a></>");
}

TEST(XMLReader, ReadsCharacterDataAndCharacterReferences) {
  EXPECT_EQ(read("<a><![CDATA[<b>&]]>&lt;&#65;&amp;</a>"), "<a><b>&<A&</>");
}

TEST(XMLReader, ReadsOtherEncodingsAsUTF8) {
  EXPECT_EQ(read("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xfc</a>"), "<a>ü</>");
  EXPECT_EQ(read("<a>\xfc</a>"), "failure: not well-formed (invalid token) in line 1");
}

TEST(XMLReader, SaysWhatIsNotWellFormed) {
  EXPECT_EQ(read(""), "failure: no element found in line 1");
  EXPECT_EQ(read("<a>\n<b></a>"), "failure: mismatched tag in line 2");
  EXPECT_EQ(read("<a/><b/>"), "failure: junk after document element in line 1");
  EXPECT_EQ(read("<p:a/>"), "failure: unbound prefix in line 1");
  EXPECT_EQ(read(std::string_view("<a>\0</a>", 8)), "failure: not well-formed (invalid token) in line 1");
}

TEST(XMLReader, RefusesEntities) {
  EXPECT_EQ(read("<!DOCTYPE a [<!ENTITY e 'text'>]><a>&e;</a>"), "failure: it declares entities");
  EXPECT_EQ(read("<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><a>&e;</a>"), "failure: it declares entities");
  EXPECT_EQ(read("<!DOCTYPE a [<!ENTITY % e SYSTEM 'file:///etc/passwd'> %e;]><a/>"), "failure: it declares entities");
  EXPECT_EQ(read("<!DOCTYPE a [<!ENTITY a 'x'><!ENTITY b '&a;&a;&a;'><!ENTITY c '&b;&b;&b;'>]><a>&c;</a>"),
            "failure: it declares entities");
}

TEST(XMLReader, LoadsNoExternalDocumentType) {
  const TestSupport::TemporaryFolder folder;
  const auto definitions = folder.write("a.dtd", "<!ENTITY e 'loaded'><!ATTLIST a b CDATA 'loaded'>");
  EXPECT_EQ(read("<!DOCTYPE a SYSTEM '" + definitions.string() + "'><a/>"), "<a></>");
  EXPECT_EQ(read("<!DOCTYPE a SYSTEM '" + definitions.string() + "'><a>&e;</a>"), "<a></>");
}

TEST(XMLReader, LimitsTheDepth) {
  EXPECT_TRUE(read(nested(maximumXMLDepth)).starts_with("<a>"));
  EXPECT_EQ(read(nested(maximumXMLDepth + 1)), "failure: it is nested too deeply");
  EXPECT_EQ(read(nested(100'000)), "failure: it is nested too deeply");
}

TEST(XMLReader, StopsAtAnEmptyElementThatIsTooDeep) {
  const std::string document = nested(maximumXMLDepth).insert(3UL * maximumXMLDepth, "<b/>");
  EXPECT_EQ(read(document), "failure: it is nested too deeply");
}

}  // namespace
