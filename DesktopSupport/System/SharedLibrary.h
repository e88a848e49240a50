#pragma once

#include <expected>
#include <string>
#include <utility>

namespace DesktopSupport {

/// A library of the system that is loaded when it is first needed, so that a launch without that need does not pay for
/// it. It stays loaded until the process ends.
class SharedLibrary {
 public:
  /// Loads the library with this name, such as "libc.so.6".
  explicit SharedLibrary(std::string name);

  /// Sets `function` to the library's function of this name, or to null if there is none.
  template <typename Function>
  void find(const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(address(name));
  }

  /// The functions, a struct that `find` has filled. Fails with a sentence if the library could not be loaded or lacks
  /// one of the functions that were looked for.
  template <typename Functions>
  [[nodiscard]] std::expected<Functions, std::string> with(Functions functions) const {
    if (!problem_.empty())
      return std::unexpected(problem_);
    return functions;
  }

 private:
  void* address(const char* name);

  std::string name_;
  void* library_;
  std::string problem_;
};

}  // namespace DesktopSupport
