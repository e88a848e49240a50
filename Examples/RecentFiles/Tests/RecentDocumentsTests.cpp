#include <gmock/gmock.h>
#include <sys/stat.h>

#include "Folder.h"
#include "RecentDocuments.h"

using namespace RecentFiles;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::string list(const std::string& bookmarks) {
  return R"(<?xml version="1.0" encoding="UTF-8"?><xbel version="1.0"
    xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks"
    xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">)" +
         bookmarks + "</xbel>";
}

std::string bookmark(const std::string& address, const std::string& modified, const std::string& visited,
                     const std::string& extra = "") {
  return "<bookmark href=\"" + address + "\" added=\"2020-01-01T00:00:00Z\" modified=\"" + modified + "\" visited=\"" +
         visited +
         "\"><info><metadata owner=\"http://freedesktop.org\"><mime:mime-type type=\"image/png\"/>"
         "<bookmark:applications><bookmark:application name=\"a\" exec=\"a\" modified=\"2020-01-01T00:00:00Z\" "
         "count=\"1\"/></bookmark:applications>" +
         extra + "</metadata></info></bookmark>";
}

class RecentDocumentsTest : public testing::Test {
 protected:
  [[nodiscard]] std::vector<std::string> addresses(const std::string& text) const {
    const auto documents = recentDocuments(folder.write("list", text));
    std::vector<std::string> addresses;
    for (const auto& document : documents.value())
      addresses.push_back(document.address);
    return addresses;
  }

  Folder folder;
};

TEST_F(RecentDocumentsTest, PutsTheOneUsedLastFirstByModificationOrVisit) {
  EXPECT_THAT(addresses(list(bookmark("file:///a", "2024-01-01T00:00:00Z", "2024-01-01T00:00:00Z") +
                             bookmark("file:///b", "2024-01-01T00:00:00Z", "2024-01-04T00:00:00Z") +
                             bookmark("file:///c", "2024-01-03T00:00:00Z", "2024-01-01T00:00:00Z") +
                             bookmark("file:///d", "2024-01-03T00:00:00.5Z", "2024-01-01T00:00:00Z"))),
              ElementsAre("file:///b", "file:///d", "file:///c", "file:///a"));
}

TEST_F(RecentDocumentsTest, HaveTheirMIMEType) {
  const auto file = folder.write("list", list(bookmark("file:///a", "2024-01-01T00:00:00Z", "2024-01-01T00:00:00Z")));
  EXPECT_EQ(recentDocuments(file).value().front().mimeType, "image/png");
}

TEST_F(RecentDocumentsTest, LeavesOutWhatAProgramHasMarkedAsPrivate) {
  EXPECT_THAT(
      addresses(list(bookmark("file:///a", "2024-01-01T00:00:00Z", "2024-01-01T00:00:00Z", "<bookmark:private/>"))),
      IsEmpty());
}

TEST_F(RecentDocumentsTest, AreNoneIfTheListIsEmpty) {
  EXPECT_THAT(addresses(list("")), IsEmpty());
}

TEST_F(RecentDocumentsTest, FailIfTheListCannotBeRead) {
  EXPECT_THAT(recentDocuments(folder.path() / "missing").error(), HasSubstr("there is no file"));
  EXPECT_THAT(recentDocuments(folder.path()).error(), HasSubstr("there is no file"));
  ASSERT_EQ(mkfifo((folder.path() / "fifo").c_str(), 0600), 0);
  EXPECT_THAT(recentDocuments(folder.path() / "fifo").error(), HasSubstr("there is no file"));
  for (const auto* text : {"", "no XML", "<xbel", "<html/>", "<xbel version=\"1.0\"><bookmark/></xbel>"})
    EXPECT_THAT(recentDocuments(folder.write("list", text)).error(), HasSubstr("cannot be read")) << text;
}

TEST_F(RecentDocumentsTest, FailIfTheListIsHuge) {
  const auto file = folder.write("list", list(""));
  std::filesystem::resize_file(file, 17 * 1024 * 1024);
  EXPECT_THAT(recentDocuments(file).error(), HasSubstr("is too large"));
}

}  // namespace
