#include "HostStandIn/HostURL.h"

#include "DesktopSupport/System/DisplayableText.h"

namespace HostStandIn {

bool isHostURL(std::string_view text) {
  constexpr std::string_view scheme = "deskloom:";
  return DesktopSupport::lowerCase(text.substr(0, scheme.size())) == scheme && DesktopSupport::printable(text) == text;
}

}  // namespace HostStandIn
