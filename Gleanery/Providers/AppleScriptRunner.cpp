#include "Gleanery/Providers/AppleScriptRunner.h"

#include <utility>

#include "Platform/Services.h"
#include "Platform/Text/UTF8.h"

namespace Gleanery {

namespace {

std::string decodingError() {
  Platform::services().log.write("data decoding error");
  return {};
}

}  // namespace

std::string AppleScriptRunner::run(std::string_view script) const {
  const auto& services = Platform::services();
  auto outcome = services.scripts.run(script);
  if (!outcome)
    return decodingError();
  if (outcome->error) {
    services.log.write("error: Optional(" + outcome->error->description() + ")");
    return {};
  }
  if (!outcome->result || !outcome->result->stringValue)
    return decodingError();

  auto bytes = Platform::utf8Bytes(std::move(*outcome->result->stringValue));
  if (!bytes)
    return decodingError();
  return Platform::stringFromUTF8(std::move(*bytes)).value_or("");
}

}  // namespace Gleanery
