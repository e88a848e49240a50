#include "Fuzz/Target.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "Platform/Error.h"
#include "Platform/Text/UTF8.h"

namespace Fuzz {

void require(bool isKept, std::string_view promise, std::source_location where) {
  if (!isKept)
    Platform::fatalError(promise, where);
}

void requireUTF8(std::string_view text, std::source_location where) {
  require(Platform::stringFromUTF8(std::string(text)).has_value(), "A text is UTF-8.", where);
}

}  // namespace Fuzz

/// libFuzzer calls this with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);  // NOLINT(*-identifier-naming)

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
