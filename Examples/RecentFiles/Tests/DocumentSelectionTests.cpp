#include <gmock/gmock.h>

#include "DocumentSelection.h"
#include "Folder.h"

using namespace RecentFiles;
using DeskloomSDK::ResourceType;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

struct Selected {
  ResourceType type;
  std::string name;
  bool operator==(const Selected&) const = default;
};

std::vector<Selected> select(const std::vector<RecentDocument>& documents, const ActionConfig& action = {},
                             const PluginConfig& plugin = {.leavesOutMissingFiles = false}) {
  std::vector<Selected> selected;
  for (const auto& resource : selectedResources(documents, action, plugin))
    selected.push_back({resource.type(), resource.name()});
  return selected;
}

TEST(DocumentSelection, TellsFilesFoldersAndWebsites) {
  const Folder folder;
  EXPECT_THAT(
      select({{.address = "file:///a%20b/caf%C3%A9.txt"},
              {.address = "file://" + folder.path().native()},
              {.address = "file:///gone", .mimeType = "inode/directory"},
              {.address = "https://example.com/"},
              {.address = "http://example.com/", .title = "Example"},
              {.address = "smb://server/share"}}),
      ElementsAre(Selected{ResourceType::file, "café.txt"}, Selected{ResourceType::folder, folder.path().filename()},
                  Selected{ResourceType::folder, "gone"}, Selected{ResourceType::website, "https://example.com/"},
                  Selected{ResourceType::website, "Example"}, Selected{ResourceType::url, "smb://server/share"}));
}

TEST(DocumentSelection, LeavesOutWhatIsNotAURL) {
  EXPECT_THAT(select({{.address = "not a URL"}, {.address = "/a/path"}, {.address = "file:///%zz"}}), IsEmpty());
}

TEST(DocumentSelection, NamesAFileByItsAddressIfItsNameIsNotText) {
  EXPECT_THAT(select({{.address = "file:///%FF"}}), ElementsAre(Selected{ResourceType::file, "file:///%FF"}));
}

TEST(DocumentSelection, TakesTheFirstOfTheKind) {
  const std::vector<RecentDocument> documents = {{.address = "file:///1", .mimeType = "text/plain"},
                                                 {.address = "file:///2", .mimeType = "image/png"},
                                                 {.address = "file:///3", .mimeType = "image/png"},
                                                 {.address = "file:///4", .mimeType = "image/png"}};
  EXPECT_THAT(select(documents, {.count = 2, .kind = FileKind::images}),
              ElementsAre(Selected{ResourceType::file, "2"}, Selected{ResourceType::file, "3"}));
}

TEST(DocumentSelection, KeepsTheNumberWithinItsBounds) {
  const std::vector<RecentDocument> documents(500, {.address = "file:///a"});
  EXPECT_THAT(select(documents, {.count = -5}), SizeIs(1));
  EXPECT_THAT(select(documents, {.count = 1'000'000}), SizeIs(100));
}

TEST(DocumentSelection, LeavesOutFilesThatAreGoneAndTakesTheNextInTheirPlace) {
  const Folder folder;
  const std::vector<RecentDocument> documents = {{.address = "file:///gone"},
                                                 {.address = "file://" + folder.write("here", "").native()},
                                                 {.address = "https://example.com/"}};
  EXPECT_THAT(select(documents, {.count = 1}, {.leavesOutMissingFiles = true}),
              ElementsAre(Selected{ResourceType::file, "here"}));
}

}  // namespace
