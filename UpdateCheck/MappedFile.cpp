#include "UpdateCheck/MappedFile.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <sys/mman.h>
#include <sys/stat.h>

namespace UpdateCheck {

std::expected<MappedFile, std::string> MappedFile::map(int file) {
  struct stat facts = {};
  if (fstat(file, &facts) != 0)
    return std::unexpected(std::system_category().message(errno));
  const auto size = static_cast<std::size_t>(facts.st_size);
  if (size == 0)  // which cannot be mapped
    return MappedFile({});
  void* const address = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  if (address == MAP_FAILED)
    return std::unexpected(std::system_category().message(errno));
  return MappedFile({static_cast<unsigned char*>(address), size});
}

MappedFile::MappedFile(MappedFile&& other) noexcept : bytes_(std::exchange(other.bytes_, {})) {}

MappedFile::~MappedFile() {
  if (!bytes_.empty())
    munmap(bytes_.data(), bytes_.size());
}

}  // namespace UpdateCheck
