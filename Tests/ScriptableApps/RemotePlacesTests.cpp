#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "DesktopSupport/System/GLibHandles.h"
#include "ScriptableApps/Finder/RemotePlaces.h"

namespace {

using DesktopSupport::VariantHandle;

/// Whether mounts of these types, of which an empty one says nothing, are places on the network.
bool areRemote(const std::vector<std::string>& types) {
  std::string mounts;
  for (const std::string& type : types)
    mounts += (mounts.empty() ? "" : ", ") +
              ("(':1.2', objectpath '/mount/1', '', '', '', '', '', '', false, b'', (b'/', {'other': <b'sftp'>" +
               (type.empty() ? "" : ", 'type': <b'" + type + "'>") + "}), b'')");
  const std::string answer = "([" + mounts + "],)";
  const VariantHandle parsed(g_variant_ref_sink(
      g_variant_parse(G_VARIANT_TYPE("(a(sossssssbay(aya{sv})ay))"), answer.c_str(), nullptr, nullptr, nullptr)));
  return ScriptableApps::listsRemotePlaces(parsed.get());
}

TEST(RemotePlaces, AreNotTheDesktopsOwn) {
  EXPECT_FALSE(areRemote({}));
  for (const char* type : {"burn", "computer", "network", "recent", "trash"})
    EXPECT_FALSE(areRemote({type})) << type;
}

TEST(RemotePlaces, AreAllOthers) {
  for (const char* type : {"sftp", "smb-share", "mtp", "Trash", "trash2", ""})
    EXPECT_TRUE(areRemote({type})) << type;
  EXPECT_TRUE(areRemote({"trash", "dav", "computer"}));
}

}  // namespace
