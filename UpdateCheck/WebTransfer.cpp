#include "UpdateCheck/WebTransfer.h"

#include <array>
#include <cstdlib>
#include <memory>

#include <curl/curl.h>

#include "DesktopSupport/System/GLibHandles.h"

namespace UpdateCheck {

namespace {

using CURLHandle = std::unique_ptr<CURL, DesktopSupport::ReleasedBy<curl_easy_cleanup>>;

constexpr long redirectsAtMost = 5;

void restrictToHTTPS(CURL* transfer) {
  // Redirects are held to these as well.
  curl_easy_setopt(transfer, CURLOPT_PROTOCOLS_STR, "https");
  curl_easy_setopt(transfer, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(transfer, CURLOPT_MAXREDIRS, redirectsAtMost);
  curl_easy_setopt(transfer, CURLOPT_FAILONERROR, 1L);
}

void demandIdentity(CURL* transfer) {
  curl_easy_setopt(transfer, CURLOPT_SSL_VERIFYPEER, 1L);
  curl_easy_setopt(transfer, CURLOPT_SSL_VERIFYHOST, 2L);
  // The library leaves this variable to programs.
  if (const char* authorities = std::getenv("SSL_CERT_FILE"); authorities != nullptr && *authorities != '\0')
    curl_easy_setopt(transfer, CURLOPT_CAINFO, authorities);
}

void limit(CURL* transfer, const FetchLimits& limits) {
  curl_easy_setopt(transfer, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits.connecting.count()));
  curl_easy_setopt(transfer, CURLOPT_TIMEOUT_MS, static_cast<long>(limits.total.count()));
  curl_easy_setopt(transfer, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(limits.bytes));
  curl_easy_setopt(transfer, CURLOPT_NOSIGNAL, 1L);
}

}  // namespace

std::expected<void, std::string> WebTransfer::run(const Platform::URL& url) const {
  const CURLHandle transfer(curl_easy_init());
  if (!transfer)
    return std::unexpected("transfers are not possible");
  std::array<char, CURL_ERROR_SIZE> problem = {};
  restrictToHTTPS(transfer.get());
  demandIdentity(transfer.get());
  limit(transfer.get(), limits_);
  curl_easy_setopt(transfer.get(), CURLOPT_URL, url.absoluteString().c_str());
  curl_easy_setopt(transfer.get(), CURLOPT_USERAGENT, userAgent_.c_str());
  curl_easy_setopt(transfer.get(), CURLOPT_ERRORBUFFER, problem.data());
  curl_easy_setopt(transfer.get(), CURLOPT_WRITEFUNCTION, &received);
  curl_easy_setopt(transfer.get(), CURLOPT_WRITEDATA, &sink_);
  const CURLcode code = curl_easy_perform(transfer.get());
  if (code == CURLE_OK)
    return {};
  return std::unexpected(std::string(problem.front() != '\0' ? problem.data() : curl_easy_strerror(code)));
}

std::size_t WebTransfer::received(char* bytes, std::size_t size, std::size_t count, void* sink) {
  const std::string_view piece(bytes, size * count);
  return (*static_cast<const ByteSink*>(sink))(piece) ? piece.size() : CURL_WRITEFUNC_ERROR;
}

}  // namespace UpdateCheck
