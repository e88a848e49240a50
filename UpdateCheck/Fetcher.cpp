#include "UpdateCheck/Fetcher.h"

#include "DesktopSupport/System/DisplayableText.h"
#include "UpdateCheck/FileTransfer.h"
#include "UpdateCheck/WebTransfer.h"

namespace UpdateCheck {

std::expected<void, std::string> Fetcher::fetch(const Platform::URL& url, const FetchLimits& limits,
                                                const ByteSink& sink) const {
  std::uint64_t received = 0;
  bool isTooLong = false;
  const ByteSink limitedSink = [&](std::string_view piece) {
    received += piece.size();
    isTooLong = received > limits.bytes;
    return !isTooLong && sink(piece);
  };
  const std::string scheme = DesktopSupport::lowerCase(url.scheme().value_or(""));
  std::expected<void, std::string> fetched = std::unexpected("it is neither an https: nor a file: URL");
  if (scheme == "file")
    fetched = FileTransfer(limitedSink).run(url);
  else if (scheme == "https")
    fetched = WebTransfer(userAgent_, limits, limitedSink).run(url);
  if (isTooLong)
    return std::unexpected("it has more than " + std::to_string(limits.bytes) + " bytes");
  return fetched;
}

std::expected<std::string, std::string> Fetcher::fetch(const Platform::URL& url, const FetchLimits& limits) const {
  std::string bytes;
  const auto fetched = fetch(url, limits, [&](std::string_view piece) {
    bytes += piece;
    return true;
  });
  if (!fetched)
    return std::unexpected(fetched.error());
  return bytes;
}

}  // namespace UpdateCheck
