#include <string>

#include <gtest/gtest.h>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/DesktopEntries/SchemeHandler.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using TestSupport::EnvironmentVariable;
using TestSupport::TemporaryFolder;

/// Configuration and data folders of the test's own, "own" before "system".
class SchemeHandlerTest : public testing::Test {
 protected:
  void install(const std::string& data, const std::string& id, const std::string& more = "") {
    folder.write(data + "/applications/" + id + ".desktop",
                 "[Desktop Entry]\nType=Application\nName=" + id + "\nExec=true\n" + more);
  }

  void write(const std::string& file, const std::string& group, const std::string& ids) {
    folder.write(file, "[" + group + "]\nx-scheme-handler/test=" + ids + "\n");
  }

  /// The id of the handler; empty if there is none.
  std::string handler(const std::string& scheme = "test") {
    DesktopSupport::DesktopEntries entries(DesktopSupport::applicationFolders());
    const auto* entry = DesktopSupport::handlerOfScheme(scheme, entries);
    return entry == nullptr ? "" : entry->id;
  }

  TemporaryFolder folder;
  EnvironmentVariable ownConfiguration{"XDG_CONFIG_HOME", folder.path() / "config"};
  EnvironmentVariable systemConfiguration{"XDG_CONFIG_DIRS", folder.path() / "systemconfig"};
  EnvironmentVariable ownData{"XDG_DATA_HOME", folder.path() / "own"};
  EnvironmentVariable systemData{"XDG_DATA_DIRS", folder.path() / "system"};
  EnvironmentVariable desktop{"XDG_CURRENT_DESKTOP", "One:TWO"};
};

TEST_F(SchemeHandlerTest, IsNoneIfNoApplicationOffersItself) {
  install("own", "a");
  EXPECT_EQ(handler(), "");
}

TEST_F(SchemeHandlerTest, IsTheOneThatWasChosen) {
  install("own", "a");
  install("own", "b");
  write("own/applications/mimeinfo.cache", "MIME Cache", "a.desktop;b.desktop;");
  EXPECT_EQ(handler(), "a");
  write("config/mimeapps.list", "Default Applications", "b.desktop");
  EXPECT_EQ(handler(), "b");
}

TEST_F(SchemeHandlerTest, IsTheFirstChoiceThatIsInstalled) {
  install("own", "b");
  install("own", "hidden", "Hidden=true\n");
  write("config/mimeapps.list", "Default Applications", "gone.desktop;hidden.desktop;b.desktop;");
  EXPECT_EQ(handler(), "b");
}

TEST_F(SchemeHandlerTest, GoesByTheFirstFileThatHasAChoice) {
  for (const auto* id : {"desktop-own", "own", "second", "data", "systemdata"})
    install("system", id);
  write("system/applications/mimeapps.list", "Default Applications", "systemdata.desktop");
  EXPECT_EQ(handler(), "systemdata");
  write("own/applications/mimeapps.list", "Default Applications", "data.desktop");
  EXPECT_EQ(handler(), "data");
  write("config/mimeapps.list", "Default Applications", "own.desktop");
  EXPECT_EQ(handler(), "own");
  write("config/two-mimeapps.list", "Default Applications", "second.desktop");
  EXPECT_EQ(handler(), "second");
  write("config/one-mimeapps.list", "Default Applications", "desktop-own.desktop");
  EXPECT_EQ(handler(), "desktop-own");
}

TEST_F(SchemeHandlerTest, TakesAnAddedApplicationAndLeavesOutARemovedOne) {
  install("own", "a");
  install("own", "b");
  write("own/applications/mimeinfo.cache", "MIME Cache", "a.desktop;b.desktop;");
  write("config/mimeapps.list", "Removed Associations", "a.desktop");
  EXPECT_EQ(handler(), "b");
  write("systemconfig/mimeapps.list", "Added Associations", "a.desktop;b.desktop");
  EXPECT_EQ(handler(), "b");
  write("config/mimeapps.list", "Added Associations", "a.desktop");
  EXPECT_EQ(handler(), "a");
}

TEST_F(SchemeHandlerTest, KnowsASchemeInAnyCase) {
  install("own", "a");
  write("own/applications/mimeinfo.cache", "MIME Cache", "a.desktop;");
  EXPECT_EQ(handler("TEST"), "a");
  EXPECT_EQ(handler("other"), "");
  EXPECT_EQ(handler(""), "");
}

TEST_F(SchemeHandlerTest, PassesOverFilesThatAreBroken) {
  install("own", "a");
  folder.write("config/mimeapps.list", "rubbish\n[Default Applications\n");
  folder.write("own/applications/mimeapps.list", std::string("\0\xFF", 2));
  write("own/applications/mimeinfo.cache", "MIME Cache", "a;;.desktop;/etc/a.desktop;a.desktop;");
  EXPECT_EQ(handler(), "a");
}

TEST_F(SchemeHandlerTest, TellsWhetherTheBusStartsIt) {
  install("own", "org.example.A", "DBusActivatable=true\n");
  write("own/applications/mimeinfo.cache", "MIME Cache", "org.example.A.desktop;");
  DesktopSupport::DesktopEntries entries(DesktopSupport::applicationFolders());
  EXPECT_TRUE(DesktopSupport::handlerOfScheme("test", entries)->isBusActivatable);
}

}  // namespace
