#pragma once

#include <unistd.h>

namespace DesktopSupport {

/// Owns a file descriptor.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : number_(number) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() {
    if (isOpen())
      close(number_);
  }

  /// False if opening the file failed.
  [[nodiscard]] bool isOpen() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }

 private:
  int number_;
};

}  // namespace DesktopSupport
