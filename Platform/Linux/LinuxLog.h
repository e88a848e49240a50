#pragma once

#include "Platform/Log.h"

namespace Platform::Linux {

/// Writes to the journal, or to syslog where there is none, and to standard error.
class LinuxLog : public Log {
 public:
  void write(std::string_view message) override;
};

}  // namespace Platform::Linux
