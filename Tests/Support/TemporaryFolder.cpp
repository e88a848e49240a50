#include "Tests/Support/TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

namespace TestSupport {

TemporaryFolder::TemporaryFolder() {
  std::string name = std::filesystem::temp_directory_path() / "deskloom-test.XXXXXX";
  if (mkdtemp(name.data()) == nullptr)
    throw std::runtime_error("cannot make a temporary folder");
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TemporaryFolder::write(const std::filesystem::path& file, std::string_view contents) const {
  const std::filesystem::path whole = path_ / file;
  std::filesystem::create_directories(whole.parent_path());
  std::ofstream(whole, std::ios::binary) << contents;
  return whole;
}

}  // namespace TestSupport
