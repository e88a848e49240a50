#pragma once

#include <cstddef>
#include <expected>
#include <span>
#include <string>

namespace UpdateCheck {

/// The bytes of an open file, read from disk as they are looked at.
class MappedFile {
 public:
  /// Maps the file as long as it is now. Nobody may shorten it meanwhile. Fails with a clause for the log.
  static std::expected<MappedFile, std::string> map(int file);

  MappedFile(MappedFile&& other) noexcept;
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;
  MappedFile& operator=(MappedFile&&) = delete;
  ~MappedFile();

  [[nodiscard]] std::span<const unsigned char> bytes() const { return bytes_; }

 private:
  explicit MappedFile(std::span<unsigned char> bytes) : bytes_(bytes) {}

  std::span<unsigned char> bytes_;
};

}  // namespace UpdateCheck
