#include "AppleScript/Syntax/VariableTable.h"

#include "AppleScript/Text/Names.h"

namespace AppleScript {

std::size_t VariableTable::slot(std::string_view name) {
  return slots_.try_emplace(lowerCase(name), slots_.size()).first->second;
}

}  // namespace AppleScript
