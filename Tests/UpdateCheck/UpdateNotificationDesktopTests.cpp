#include <chrono>
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "Platform/Text/URL.h"
#include "Tests/Support/FakeNotifications.h"
#include "Tests/Support/FakeService.h"
#include "Tests/UpdateCheck/UpdateCheckTest.h"
#include "UpdateCheck/UpdateNotification.h"

namespace {

using Platform::URL;
using testing::HasSubstr;
using testing::StartsWith;
using TestSupport::ChildProcess;
using TestSupport::FakeNotifications;
using TestSupport::FakeService;
using UpdateCheck::UpdateNotification;

using UpdateNotificationTest = UpdateCheckTest;

TEST_F(UpdateNotificationTest, TellsTheUserAboutANewerVersion) {
  FakeNotifications notifications;
  offer(itemOf("2.0", "<sparkle:shortVersionString>Two</sparkle:shortVersionString>" + linkTo(page)));
  ChildProcess check = start();
  EXPECT_EQ(notifications.await(),
            "Notify('Plugin', 0, 'com.example.Plugin', 'An update for Plugin is available', "
            "'Version Two can be downloaded.', ['default', 'Learn More', 'open', 'Learn More'], "
            "{'desktop-entry': <'com.example.Plugin'>}, -1)");
  notifications.close();
  EXPECT_EQ(finish(std::move(check)), "told the user about Plugin Two\n");
}

TEST_F(UpdateNotificationTest, OpensThePageOnAClickOnTheButtonOrTheNotification) {
  offer(itemOf("2.0", linkTo(page)));
  for (const char* action : {"open", "default"}) {
    FakeNotifications notifications;
    ChildProcess check = start();
    (void)notifications.await();
    notifications.invoke(action);
    EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\nopened " + page + '\n') << action;
    std::filesystem::remove_all(folder.path() / "state");
  }
}

TEST_F(UpdateNotificationTest, OpensThePageInABrowserOnTheBus) {
  FakeNotifications notifications;
  FakeService browser("org.example.Browser", "/org/example/Browser", R"(
<node><interface name="org.freedesktop.Application">
  <method name="Open"><arg type="as"/><arg type="a{sv}"/></method>
</interface></node>)");
  browser.answer("Open", "()");
  registerBrowser("Exec=false\nDBusActivatable=true\n");
  offer(itemOf("2.0", linkTo(page)));
  ChildProcess check = start();
  (void)notifications.await();
  notifications.invoke("open");
  EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\n");
  EXPECT_THAT(browser.awaitCall("Open"), HasSubstr("['" + page + "']"));
}

TEST_F(UpdateNotificationTest, SaysThatThePageCannotBeOpened) {
  FakeNotifications notifications;
  registerBrowser("Exec=/nonexistent/browser %u\n");
  offer(itemOf("2.0", linkTo(page)));
  ChildProcess check = start();
  (void)notifications.await();
  notifications.invoke("open");
  EXPECT_THAT(finish(std::move(check)),
              StartsWith("told the user about Plugin 2.0\ncould not open the page about Plugin 2.0: "));
}

TEST_F(UpdateNotificationTest, OffersNoButtonIfThePageIsNotAtAnHTTPSURL) {
  const auto notes = folder.write("notes.html", "<html/>");
  for (const std::string& link : {std::string("http://example.com/"), URL::fileURL(notes).absoluteString()}) {
    offer(itemOf("2.0", linkTo(link)));
    FakeNotifications notifications;
    ChildProcess check = start();
    EXPECT_THAT(notifications.await(), HasSubstr("'Version 2.0 can be downloaded.', [], ")) << link;
    notifications.invoke("default");
    EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\n");
    std::filesystem::remove_all(folder.path() / "state");
  }
}

TEST_F(UpdateNotificationTest, SpeaksTheUsersLanguageButLogsInEnglish) {
  std::filesystem::create_directories(bundle() / "locale/de/LC_MESSAGES");
  const auto catalogue =
      folder.write("de.po",
                   "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n"
                   "msgid \"Version %@ can be downloaded.\"\nmsgstr \"Version %@ können Sie herunterladen.\"\n");
  ASSERT_EQ(TestSupport::run(
                {"msgfmt", "--output-file", bundle() / "locale/de/LC_MESSAGES/com.example.Plugin.mo", catalogue}),
            0);
  offer(itemOf("2.0"));
  FakeNotifications notifications;
  ChildProcess check = start({{"LANGUAGE", "de"}});
  EXPECT_THAT(notifications.await(),
              HasSubstr("'An update for Plugin is available', 'Version 2.0 können Sie herunterladen.'"));
  notifications.close();
  EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\n");
}

TEST_F(UpdateNotificationTest, IgnoresSignalsAboutOtherNotifications) {
  FakeNotifications notifications;
  offer(itemOf("2.0", linkTo(page)));
  ChildProcess check = start();
  (void)notifications.await();
  notifications.close("8");
  notifications.emit("ActionInvoked", "(uint32 8, 'open')");
  notifications.emit("ActionInvoked", "('7', 'open')");
  notifications.emit("ActivationToken", "(uint32 7, 'token')");
  notifications.invoke("open");
  EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\nopened " + page + '\n');
}

TEST_F(UpdateNotificationTest, EndsWhenTheNotificationServiceDoes) {
  FakeNotifications notifications;
  offer(itemOf("2.0", linkTo(page)));
  ChildProcess check = start();
  (void)notifications.await();
  notifications.disappear();
  EXPECT_EQ(finish(std::move(check)), "told the user about Plugin 2.0\n");
}

TEST(UpdateNotification, WaitsNoLongerThanTheTimeout) {
  FakeNotifications notifications;
  UpdateNotification notification(*DesktopSupport::SessionBus::connect());
  ASSERT_TRUE(notification.show({.identifier = "com.example.Plugin",
                                 .applicationName = "Plugin",
                                 .summary = "summary",
                                 .body = "body",
                                 .button = "button"}));
  EXPECT_FALSE(notification.awaitAnswer(std::chrono::seconds(0)));
}

TEST_F(UpdateNotificationTest, ShowsPlainTextEvenIfTheServiceReadsMarkup) {
  offer(itemOf("2.0", "<sparkle:shortVersionString>&lt;b&gt; &amp; 2</sparkle:shortVersionString>"));
  for (const bool readsMarkup : {false, true}) {
    FakeNotifications notifications;
    if (readsMarkup)
      notifications.readMarkup();
    ChildProcess check = start();
    EXPECT_THAT(notifications.await(),
                HasSubstr(readsMarkup ? "'Version &lt;b&gt; &amp; 2 can" : "'Version <b> & 2 can"));
    notifications.close();
    (void)finish(std::move(check));
    std::filesystem::remove_all(folder.path() / "state");
  }
}

TEST_F(UpdateNotificationTest, SaysThatTheNotificationWasRefused) {
  FakeNotifications notifications;
  notifications.refuse();
  offer(itemOf("2.0"));
  for (int attempt = 0; attempt < 2; ++attempt)
    EXPECT_EQ(finish(start()), "could not check for an update of Plugin: the user cannot be told: No answer is set.\n");
}

}  // namespace
