#include "Platform/Error.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace Platform {

Error::Error(std::string domain, int code, std::string localizedDescription, std::string localizedFailureReason)
    : domain_(std::move(domain)),
      code_(code),
      userInfo_{{localizedDescriptionKey, std::move(localizedDescription)},
                {localizedFailureReasonKey, std::move(localizedFailureReason)}} {}

void fatalError(std::string_view message, std::source_location where) {
  std::string_view file = where.file_name();
  file.remove_prefix(file.rfind('/') + 1);

  std::string line = "Fatal error: ";
  line.append(message).append(": file ").append(file).append(", line ").append(std::to_string(where.line())) += '\n';
  std::fputs(line.c_str(), stderr);
  std::abort();
}

}  // namespace Platform
