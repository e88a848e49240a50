#include "UpdateCheck/Fetch.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>

#include <curl/curl.h>
#include <unistd.h>

#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace UpdateCheck {

namespace {

using CURLHandle = std::unique_ptr<CURL, DesktopSupport::ReleasedBy<curl_easy_cleanup>>;
using DesktopSupport::CharsHandle;
using Platform::URL;
using Fetched = std::expected<std::string, std::string>;

constexpr long maximumRedirects = 5;

std::unexpected<std::string> tooLong(const FetchLimits& limits) {
  return std::unexpected("it has more than " + std::to_string(limits.bytes) + " bytes");
}

/// The path in a file URL, or null if the file is on another machine.
CharsHandle localPath(const URL& url) {
  CharsHandle host;
  CharsHandle path(g_filename_from_uri(url.absoluteString().c_str(), DesktopSupport::Out(host), nullptr));
  const bool isLocal = !host || *host == '\0' || std::string_view(host.get()) == "localhost";
  return isLocal ? std::move(path) : nullptr;
}

Fetched readFile(const URL& url, const FetchLimits& limits) {
  const CharsHandle path = localPath(url);
  if (!path)
    return std::unexpected("it is not a file on this machine");
  if (auto bytes = DesktopSupport::fileContents(path.get(), limits.bytes))
    return *std::move(bytes);
  if (access(path.get(), R_OK) != 0)
    return std::unexpected(std::system_category().message(errno));
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path.get(), ignored))
    return std::unexpected("it is not a regular file");
  return tooLong(limits);
}

/// The bytes that have come from a server, and how many may come.
struct Received {
  std::string bytes;
  std::size_t limit;
};

std::size_t receive(char* bytes, std::size_t size, std::size_t count, void* data) {
  auto& received = *static_cast<Received*>(data);
  const std::string_view piece(bytes, size * count);
  if (piece.size() > received.limit - received.bytes.size())
    return CURL_WRITEFUNC_ERROR;
  received.bytes += piece;
  return piece.size();
}

void restrictToHTTPS(CURL* transfer) {
  // These are the protocols of redirects too.
  curl_easy_setopt(transfer, CURLOPT_PROTOCOLS_STR, "https");
  curl_easy_setopt(transfer, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(transfer, CURLOPT_MAXREDIRS, maximumRedirects);
  curl_easy_setopt(transfer, CURLOPT_FAILONERROR, 1L);
}

void demandIdentity(CURL* transfer) {
  curl_easy_setopt(transfer, CURLOPT_SSL_VERIFYPEER, 1L);
  curl_easy_setopt(transfer, CURLOPT_SSL_VERIFYHOST, 2L);
  // The library doesn't read this variable itself.
  if (const char* authorities = std::getenv("SSL_CERT_FILE"); authorities != nullptr && *authorities != '\0')
    curl_easy_setopt(transfer, CURLOPT_CAINFO, authorities);
}

void limit(CURL* transfer, const FetchLimits& limits) {
  curl_easy_setopt(transfer, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits.connecting.count()));
  curl_easy_setopt(transfer, CURLOPT_TIMEOUT_MS, static_cast<long>(limits.total.count()));
  curl_easy_setopt(transfer, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(limits.bytes));
  curl_easy_setopt(transfer, CURLOPT_NOSIGNAL, 1L);
}

Fetched download(const URL& url, const FetchLimits& limits, const std::string& userAgent) {
  const CURLHandle transfer(curl_easy_init());
  if (!transfer)
    return std::unexpected("libcurl does not start");
  Received received = {.bytes = {}, .limit = limits.bytes};
  std::array<char, CURL_ERROR_SIZE> problem = {};
  restrictToHTTPS(transfer.get());
  demandIdentity(transfer.get());
  limit(transfer.get(), limits);
  curl_easy_setopt(transfer.get(), CURLOPT_URL, url.absoluteString().c_str());
  curl_easy_setopt(transfer.get(), CURLOPT_USERAGENT, userAgent.c_str());
  curl_easy_setopt(transfer.get(), CURLOPT_ERRORBUFFER, problem.data());
  curl_easy_setopt(transfer.get(), CURLOPT_WRITEFUNCTION, &receive);
  curl_easy_setopt(transfer.get(), CURLOPT_WRITEDATA, &received);
  const CURLcode code = curl_easy_perform(transfer.get());
  if (code == CURLE_OK)
    return std::move(received.bytes);
  // A length is refused by the library if the server announces it, else by `receive`.
  if (code == CURLE_FILESIZE_EXCEEDED || code == CURLE_WRITE_ERROR)
    return tooLong(limits);
  return std::unexpected(std::string(problem.front() != '\0' ? problem.data() : curl_easy_strerror(code)));
}

}  // namespace

std::expected<std::string, std::string> fetch(const URL& url, const FetchLimits& limits, const std::string& userAgent) {
  const std::string scheme = DesktopSupport::lowerCase(url.scheme().value_or(""));
  if (scheme == "file")
    return readFile(url, limits);
  if (scheme == "https")
    return download(url, limits, userAgent);
  return std::unexpected("it is neither an https: nor a file: URL");
}

}  // namespace UpdateCheck
