#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "Tests/Support/BusNames.h"
#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

const std::string name = "com.quillary.Deskloom";

TEST(HostActivation, StartsTheHostForURLsAndLosesNone) {
  const TestSupport::TemporaryFolder folder;
  const std::filesystem::path log = folder.path() / "log";
  TestSupport::setActivationEnvironment("DESKLOOM_HOST_LOG", log);
  const std::string url = "deskloom://gleanery/" + std::string(1U << 20U, 'x');
  EXPECT_TRUE(TestSupport::openURL(name, url));
  EXPECT_TRUE(TestSupport::openURL(name, "deskloom://next"));
  // The host answers this only after it is done with the URLs before.
  EXPECT_TRUE(TestSupport::openURL(name, "deskloom://last"));

  std::ifstream file(log);
  const std::string logged(std::istreambuf_iterator<char>(file), {});
  EXPECT_TRUE(logged.starts_with(url + "\ndeskloom://next\n"));
}

TEST(HostActivation, MakesItTheHandlerOfItsScheme) {
  const TestSupport::ObjectHandle<GAppInfo> handler(g_app_info_get_default_for_uri_scheme("deskloom"));
  ASSERT_TRUE(handler);
  EXPECT_STREQ(g_app_info_get_id(handler.get()), "com.quillary.Deskloom.desktop");
}

}  // namespace
