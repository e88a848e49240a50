#pragma once

#include <optional>
#include <string>

namespace TestSupport {

/// Sets or unsets an environment variable during the lifetime of this object.
class EnvironmentVariable {
 public:
  EnvironmentVariable(std::string name, const std::optional<std::string>& value);
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
  ~EnvironmentVariable();

 private:
  std::string name_;
  std::optional<std::string> before_;
};

}  // namespace TestSupport
