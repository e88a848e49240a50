#include <gmock/gmock.h>

#include "DeskloomSDK/Host/SDKError.h"
#include "DeskloomSDK/Resources/Command.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::Command;
using DeskloomSDK::Resource;
using DeskloomSDK::ResourceType;
using Platform::URL;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CommandTest : public testing::Test {
 protected:
  Platform::Fake::FakeServices desktop;
};

TEST_F(CommandTest, CarriesAnEmptyListAsEscapedBrackets) {
  const Command command(std::vector<Resource>{});
  EXPECT_EQ(command.name(), "gleanery");
  EXPECT_EQ(command.data(), "%5B%5D");
  EXPECT_TRUE(command.send());
  EXPECT_THAT(desktop.workspace.opened, ElementsAre("deskloom://gleanery/%5B%5D"));
}

TEST_F(CommandTest, KeepsSlashesAndColonsOfTheTextAndEscapesTheRest) {
  const Command command({Resource(ResourceType::file, "Café", URL::parse("file:///tmp/a").value())});
  EXPECT_EQ(command.data(),
            "%5B%7B%22type%22:%22file%22,%22name%22:%22Caf%C3%A9%22,%22url%22:%22file:%5C/%5C/%5C/tmp%5C/a%22%7D%5D");
}

TEST_F(CommandTest, EscapesWhatAPathDoesNotAllow) {
  std::string name;
  for (char character = ' '; character <= '~'; ++character)
    name += character;
  const Command command({Resource(ResourceType::file, name, URL::parse("x:y").value())});
  EXPECT_EQ(command.data(),
            "%5B%7B%22type%22:%22file%22,%22name%22:%22"
            "%20!%5C%22%23$%25&'()*+,-.%5C/0123456789:;%3C=%3E%3F@ABCDEFGHIJKLMNOPQRSTUVWXYZ%5B%5C%5C%5D%5E_"
            "%60abcdefghijklmnopqrstuvwxyz%7B%7C%7D~"
            "%22,%22url%22:%22x:y%22%7D%5D");
  EXPECT_TRUE(command.send());
  EXPECT_THAT(desktop.workspace.opened, ElementsAre("deskloom://gleanery/" + command.data().value()));
}

TEST_F(CommandTest, GoesWithoutPayloadIfTheListCannotBeEncoded) {
  const Command command({Resource(ResourceType::file, "\xFF", URL::parse("file:///tmp/a").value())});
  EXPECT_EQ(command.data(), std::nullopt);
  EXPECT_TRUE(command.send());
  EXPECT_THAT(desktop.workspace.opened, ElementsAre("deskloom://gleanery"));
}

TEST_F(CommandTest, WritesTheSlashOfAPayloadThatIsEmpty) {
  EXPECT_TRUE(Command("name", "").send());
  EXPECT_THAT(desktop.workspace.opened, ElementsAre("deskloom://name/"));
}

TEST_F(CommandTest, FailsIfTheURLCannotBeBuilt) {
  const auto sent = Command("a name", std::nullopt).send();
  ASSERT_FALSE(sent);
  EXPECT_EQ(sent.error().domain(), "com.quillary.DeskloomSDK");
  EXPECT_EQ(sent.error().code(), 0);
  EXPECT_EQ(sent.error().localizedDescription(), "Could not create URL");
  EXPECT_EQ(sent.error().localizedFailureReason(), "");
  EXPECT_EQ(desktop.strings.comments["Could not create URL"], "Error");
  EXPECT_THAT(desktop.workspace.opened, IsEmpty());
}

TEST_F(CommandTest, DescribesTheFailureInTheUsersLanguage) {
  desktop.strings.translations["Could not create URL"] = "URL konnte nicht erstellt werden";
  EXPECT_EQ(Command("a name", std::nullopt).send().error().localizedDescription(), "URL konnte nicht erstellt werden");
}

}  // namespace
