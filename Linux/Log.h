#pragma once

#include "Platform/Log.h"

namespace Linux {

/// Writes to the journal, or to syslog where there is none, and to standard error. Of the control characters of a
/// message line feeds alone are obeyed, and none that change the direction of writing.
class Log : public Platform::Log {
 public:
  void write(std::string_view message) override;
};

}  // namespace Linux
