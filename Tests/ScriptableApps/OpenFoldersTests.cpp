#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <expected>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <libintl.h>

#include "DesktopSupport/System/GLibHandles.h"
#include "ScriptableApps/Finder/OpenFolders.h"
#include "Tests/Support/DeadMount.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using namespace std::chrono_literals;
using ScriptableApps::OpenFolder;

class OpenFolderTest : public testing::Test {
 protected:
  /// Makes a folder. Yields its path without a slash at the end.
  [[nodiscard]] std::string make(std::string_view name) const {
    const auto folder = folder_.path() / name;
    std::filesystem::create_directories(folder);
    return folder;
  }

  static std::expected<std::optional<OpenFolder>, std::string> find(const std::string& uri) {
    ScriptableApps::MountedPlaces places(60s);
    auto folders = ScriptableApps::openFoldersAt({uri}, places);
    if (folders.empty())
      return std::nullopt;
    EXPECT_EQ(folders.size(), 1U);
    if (!folders.front())
      return std::unexpected(folders.front().error());
    return std::move(*folders.front());
  }

  static std::optional<OpenFolder> at(const std::string& uri) {
    const auto folder = find(uri);
    EXPECT_TRUE(folder) << folder.error();
    return folder.value_or(std::nullopt);
  }

  static void expectFolder(const std::string& uri, const std::string& name, const std::string& path) {
    const auto folder = at(uri);
    ASSERT_TRUE(folder) << uri;
    EXPECT_EQ(folder->name, name) << uri;
    EXPECT_EQ(folder->path, path) << uri;
  }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(OpenFolderTest, HasThePathOfTheFolderWithASlashAtItsEnd) {
  const std::string path = make("Reports");
  expectFolder("file://" + path, "Reports", path + '/');
  expectFolder("file://" + path + '/', "Reports", path + '/');
  expectFolder("file://localhost" + path, "Reports", path + '/');
  expectFolder(std::string("file://") + g_get_host_name() + path, "Reports", path + '/');
  expectFolder("FILE://" + path, "Reports", path + '/');
  expectFolder("file://" + path + "/.././/Reports//", "Reports", path + '/');
}

TEST_F(OpenFolderTest, IsAlsoOneOnANetworkMountThatDoesNotAnswer) {
  const std::string before = make("a");
  const std::string after = make("b");
  const TestSupport::DeadMount mount(make("mount"));
  ScriptableApps::MountedPlaces places(60s);
  const auto folders =
      ScriptableApps::openFoldersAt({"file://" + before, "file://" + mount.path().string() + "/documents",
                                     "file://" + after, "file:///no/such/folder"},
                                    places);
  std::vector<std::string> paths;
  for (const auto& folder : folders)
    paths.push_back(folder.value().path);
  EXPECT_THAT(paths, testing::ElementsAre(before + '/', mount.path().string() + "/documents/", after + '/'));
}

TEST_F(OpenFolderTest, IsReadFromTheURIsPercentEncoding) {
  const std::string path = make("50% größer #1?");
  expectFolder("file://" + folder_.path().string() + "/50%25%20gr%C3%B6%C3%9Fer%20%231%3F", "50% größer #1?",
               path + '/');
}

TEST_F(OpenFolderTest, IsCalledHomeIfItIsTheUsersOwn) {
  const TestSupport::EnvironmentVariable english("LC_ALL", "C");
  const std::filesystem::path home = std::getenv("HOME");
  expectFolder("file://" + home.string(), "Home", (home / "").string());
}

TEST_F(OpenFolderTest, IsCalledHomeIfTheUsersLocaleIsUnknown) {
  const TestSupport::EnvironmentVariable unknown("LC_ALL", "xx_XX.UTF-8");
  const std::filesystem::path home = std::getenv("HOME");
  expectFolder("file://" + home.string(), "Home", (home / "").string());
}

/// A compiled catalogue that translates one text.
std::string catalogueWith(const std::string& text, const std::string& translation) {
  constexpr std::uint32_t headSize = 28;
  constexpr std::uint32_t entrySize = 8;
  const auto textSize = static_cast<std::uint32_t>(text.size());
  const auto translationSize = static_cast<std::uint32_t>(translation.size());
  constexpr std::uint32_t texts = headSize + 2 * entrySize;
  std::string catalogue;
  for (const std::uint32_t number : {0x950412deU, 0U, 1U, headSize, headSize + entrySize, 0U, 0U, textSize, texts,
                                     translationSize, texts + textSize + 1})
    catalogue.append(reinterpret_cast<const char*>(&number), sizeof(number));
  return catalogue + text + '\0' + translation + '\0';
}

TEST_F(OpenFolderTest, IsTheUsersOwnUnderTheNameOfAnyFileManager) {
  const TestSupport::EnvironmentVariable locale("LC_ALL", "C.UTF-8");
  const TestSupport::EnvironmentVariable language("LANGUAGE", "tlh");
  for (const std::string catalogue : {"nautilus", "nemo", "kio5", "kio6"}) {
    const std::string text = catalogue.starts_with("kio") ? "KFile System Bookmarks\004Home" : "Home";
    folder_.write("tlh/LC_MESSAGES/" + catalogue + ".mo", catalogueWith(text, "juH of " + catalogue));
    bindtextdomain(catalogue.c_str(), folder_.path().c_str());
    EXPECT_TRUE(ScriptableApps::isNameOfHomeFolder("juH of " + catalogue)) << catalogue;
    bindtextdomain(catalogue.c_str(), "/usr/share/locale");
  }
  EXPECT_FALSE(ScriptableApps::isNameOfHomeFolder("juH"));
  EXPECT_TRUE(ScriptableApps::isNameOfHomeFolder("Home")) << "no catalogue translates it";
}

TEST_F(OpenFolderTest, MayBeTheRoot) {
  expectFolder("file:///", "/", "/");
}

TEST_F(OpenFolderTest, MayBeALinkToAFolder) {
  std::filesystem::create_directory_symlink(make("Reports"), folder_.path() / "Link");
  const std::string link = folder_.path() / "Link";
  expectFolder("file://" + link, "Link", link + '/');
}

TEST_F(OpenFolderTest, IsAbsentIfThereIsNoFolder) {
  const std::string file = folder_.write("file", "contents");
  EXPECT_FALSE(at("file://" + file));
  EXPECT_FALSE(at("file://" + folder_.path().string() + "/none"));
  std::filesystem::create_symlink("loop", folder_.path() / "loop");
  EXPECT_FALSE(at("file://" + folder_.path().string() + "/loop"));
}

TEST_F(OpenFolderTest, IsAbsentOnAnotherMachine) {
  EXPECT_FALSE(at("file://elsewhere.example" + make("Reports")));
}

TEST_F(OpenFolderTest, IsAbsentForATextThatIsNoLocation) {
  for (const char* uri :
       {"", "/", "/tmp", "file:", "file:tmp", "file:///%", "file:///tmp%00", "file:///tmp%2F..", "://", "%", "\n"})
    EXPECT_FALSE(at(uri)) << uri;
}

TEST_F(OpenFolderTest, IsAbsentForPlacesOutsideTheFileSystem) {
  for (const char* uri : {"trash:///", "recent:///", "starred:///", "other-locations:///", "network:///",
                          "x-nautilus-search://0/", "sftp://nowhere.invalid/home", "admin:///", "unheard-of:///"})
    EXPECT_FALSE(at(uri)) << uri;
}

TEST_F(OpenFolderTest, IsAProblemIfItsPathIsNotOneLineOfUTF8) {
  for (const auto& [name, shown] : std::map<std::string, std::string>{{"two\nlines", "two lines"},
                                                                      {"two\rlines", "two lines"},
                                                                      {"two\xe2\x80\xa8lines", "two lines"},
                                                                      {"Gr\xf6nland", "Gr\uFFFDnland"}}) {
    const DesktopSupport::CharsHandle uri(g_filename_to_uri(make(name).c_str(), nullptr, nullptr));
    const auto folder = find(uri.get());
    ASSERT_FALSE(folder) << uri.get();
    EXPECT_EQ(folder.error(), "The folder " + (folder_.path() / shown).string() +
                                  " is left out: its path contains characters that cannot be shown.");
  }
}

TEST_F(OpenFolderTest, IsNoProblemIfItDoesNotExist) {
  EXPECT_FALSE(at("file://" + folder_.path().string() + "/no%0Afolder"));
}

TEST_F(OpenFolderTest, LeavesTheLanguageOfTheThreadAsItIs) {
  const locale_t before = uselocale(nullptr);
  EXPECT_TRUE(ScriptableApps::folderWithPath(std::getenv("HOME")));
  EXPECT_EQ(uselocale(nullptr), before);
}

}  // namespace
