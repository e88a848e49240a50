#include "Tests/Support/EnvironmentVariable.h"

#include <cstdlib>
#include <utility>

namespace TestSupport {

namespace {

void set(const std::string& name, const std::optional<std::string>& value) {
  if (value)
    setenv(name.c_str(), value->c_str(), 1);
  else
    unsetenv(name.c_str());
}

}  // namespace

EnvironmentVariable::EnvironmentVariable(std::string name, const std::optional<std::string>& value)
    : name_(std::move(name)) {
  if (const char* before = std::getenv(name_.c_str()))
    before_ = before;
  set(name_, value);
}

EnvironmentVariable::~EnvironmentVariable() {
  set(name_, before_);
}

}  // namespace TestSupport
