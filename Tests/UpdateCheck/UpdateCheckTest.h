#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <utility>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Platform/Text/URL.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/TemporaryFolder.h"

inline const std::string page = "https://example.com/notes?a=1&b=%20#top";

inline std::string appcast(const std::string& items) {
  return "<rss xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel>" + items +
         "</channel></rss>";
}

inline std::string itemOf(const std::string& version, const std::string& more = "") {
  return "<item><sparkle:version>" + version + "</sparkle:version>" + more + "</item>";
}

inline std::string linkTo(const std::string& url) {
  return "<link><![CDATA[" + url + "]]></link>";
}

/// The program in a bundle of its own, with a feed on disk and a browser that prints what it is given.
class UpdateCheckTest : public testing::Test {
 protected:
  UpdateCheckTest() {
    std::filesystem::create_directories(bundle());
    std::filesystem::copy_file(UPDATE_CHECK_PROGRAM, bundle() / "update-check");
    configure("FeedURL=" + feedURL() + "\nInterval=0\n");
    const auto browser = folder.write("browser", "#!/bin/sh\nprintf 'opened %s\\n' \"$1\"\n");
    chmod(browser.c_str(), 0700);
    registerBrowser("Exec=" + browser.string() + " %u\n");
    // Of the system's data, only the MIME types are visible, and no other browser.
    std::filesystem::create_directory(folder.path() / "system");
    std::filesystem::create_directory_symlink("/usr/share/mime", folder.path() / "system/mime");
  }

  [[nodiscard]] std::filesystem::path bundle() const { return folder.path() / "com.example.Plugin"; }
  [[nodiscard]] std::string feedURL() const {
    return Platform::URL::fileURL(folder.path() / "appcast.xml").absoluteString();
  }

  void configure(const std::string& updates) const {
    folder.write("com.example.Plugin/Info.ini",
                 "[Bundle]\nIdentifier=com.example.Plugin\nName=Plugin\nVersion=1.0\n\n[Updates]\n" + updates);
  }

  void offer(const std::string& items) const { folder.write("appcast.xml", appcast(items)); }

  void registerBrowser(const std::string& lines) const {
    folder.write(
        "data/applications/org.example.Browser.desktop",
        "[Desktop Entry]\nType=Application\nName=Browser\nMimeType=x-scheme-handler/https;text/html;\n" + lines);
    folder.write("data/applications/mimeapps.list",
                 "[Default Applications]\nx-scheme-handler/https=org.example.Browser.desktop\n"
                 "text/html=org.example.Browser.desktop\n");
  }

  /// Starts the program. Its output is what it and the browser print, until both have ended.
  [[nodiscard]] TestSupport::ChildProcess start(std::map<std::string, std::string> environment = {}) const {
    environment.emplace("XDG_DATA_HOME", folder.path() / "data");
    environment.emplace("XDG_DATA_DIRS", folder.path() / "system");
    environment.emplace("XDG_STATE_HOME", folder.path() / "state");
    environment.emplace("LC_ALL", "C.UTF-8");
    return TestSupport::ChildProcess({bundle() / "update-check"}, {.environment = environment, .captureErrors = true});
  }

  /// Waits for its end and yields its output.
  static std::string finish(TestSupport::ChildProcess process) {
    std::string output = process.readAll();
    EXPECT_EQ(process.wait(), 0);
    return output;
  }

  TestSupport::TemporaryFolder folder;
};
