#include "ScriptableApps/Browsers/TabAddress.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include <arpa/inet.h>

#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"

namespace ScriptableApps {

namespace {

constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view digits = "0123456789";
constexpr std::string_view hexDigits = "0123456789ABCDEFabcdef";
constexpr std::string_view marks = "-._~";
constexpr std::string_view subDelimiters = "!$&'()*+,;=";

// For each byte whether it may occur unencoded in every part of an address except the scheme.
constexpr auto plain = [] {
  std::array<bool, 256> table = {};
  for (const std::string_view characters : {letters, digits, marks, subDelimiters})
    for (const char character : characters)
      table[static_cast<unsigned char>(character)] = true;
  return table;
}();

bool isPlain(char character) {
  return plain[static_cast<unsigned char>(character)];
}

bool isEscape(std::string_view text) {
  return text.size() >= 3 && text[0] == '%' && hexDigits.contains(text[1]) && hexDigits.contains(text[2]);
}

void appendEscaped(std::string& address, char character) {
  const auto byte = static_cast<unsigned char>(character);
  address += {'%', hexDigits[byte >> 4U], hexDigits[byte & 15U]};
}

// Appends a part of an address. The characters in `allowed` stay unencoded too.
void appendPart(std::string& address, std::string_view text, std::string_view allowed) {
  for (std::size_t position = 0; position < text.size(); ++position) {
    const char character = text[position];
    if (isPlain(character) || allowed.contains(character) || isEscape(text.substr(position)))
      address += character;
    else
      appendEscaped(address, character);
  }
}

// Removes the scheme with its colon from the address and yields it; empty if there is none.
std::string_view takeScheme(std::string_view& address) {
  const auto isOfScheme = [](char character) {
    return letters.contains(character) || digits.contains(character) || std::string_view("+-.").contains(character);
  };
  const auto end = std::ranges::find_if_not(address, isOfScheme);
  if (end == address.end() || *end != ':' || !letters.contains(address.front()))
    return {};
  const std::string_view scheme(address.begin(), end + 1);
  address.remove_prefix(scheme.size());
  return scheme;
}

// Removes the text before the first of the characters `ends` from the address, or all of it, and yields it.
std::string_view takeUntil(std::string_view& address, std::string_view ends) {
  const std::string_view part = address.substr(0, address.find_first_of(ends));
  address.remove_prefix(part.size());
  return part;
}

bool isIPv6Literal(std::string_view host) {
  if (host.size() < 2 || host.front() != '[' || host.back() != ']')
    return false;
  const std::string number(host.substr(1, host.size() - 2));
  std::array<unsigned char, sizeof(in6_addr)> binary = {};
  return !number.contains('\0') && inet_pton(AF_INET6, number.c_str(), binary.data()) == 1;
}

// Whether hosts in addresses with this scheme, which includes its colon, are domain names.
bool hasDomainName(std::string_view scheme) {
  constexpr std::array<std::string_view, 5> schemes = {"http:", "https:", "ws:", "wss:", "ftp:"};
  return std::ranges::find(schemes, DesktopSupport::lowerCase(scheme)) != schemes.end();
}

bool isASCIIHost(std::string_view host) {
  return std::ranges::all_of(host, [](char character) {
    return letters.contains(character) || digits.contains(character) || std::string_view("-._").contains(character);
  });
}

// The ASCII form (xn--…) of an international host name. Empty if there is none, or if it converts back to a different
// name: then it would be another host.
std::string asciiHost(std::string_view host) {
  if (isASCIIHost(host) || !DesktopSupport::isUTF8(host))
    return {};
  const std::string name(host);
  const DesktopSupport::CharsHandle ascii(g_hostname_to_ascii(name.c_str()));
  const DesktopSupport::CharsHandle back(ascii ? g_hostname_to_unicode(ascii.get()) : nullptr);
  return back && name == back.get() && isASCIIHost(ascii.get()) ? ascii.get() : std::string();
}

void appendHost(std::string& address, std::string_view host, bool isDomainName) {
  if (isIPv6Literal(host))
    address += host;
  else if (const std::string ascii = isDomainName ? asciiHost(host) : ""; !ascii.empty())
    address += ascii;
  else
    appendPart(address, host, "");
}

void appendAuthority(std::string& address, std::string_view authority, bool hasDomainName) {
  if (const auto at = authority.rfind('@'); at != std::string_view::npos) {
    appendPart(address, authority.substr(0, at), ":");
    address += '@';
    authority.remove_prefix(at + 1);
  }
  const auto portStart = authority.find_last_not_of(digits);
  const bool hasPort = portStart != std::string_view::npos && authority[portStart] == ':';
  appendHost(address, authority.substr(0, hasPort ? portStart : authority.size()), hasDomainName);
  if (hasPort)
    address += authority.substr(portStart);
}

}  // namespace

std::string tabAddress(std::string_view address) {
  if (address.empty())
    return "about:blank";
  std::string result;
  result.reserve(address.size());
  const std::string_view scheme = takeScheme(address);
  result += scheme;
  const bool hasAuthority = address.starts_with("//");
  if (hasAuthority) {
    result += "//";
    address.remove_prefix(2);
    appendAuthority(result, takeUntil(address, "/?#"), hasDomainName(scheme));
  }
  // Without a scheme, a colon in the first segment would turn the text before it into one.
  if (scheme.empty() && !hasAuthority)
    appendPart(result, takeUntil(address, "/?#"), "@");
  appendPart(result, takeUntil(address, "?#"), ":@/");
  appendPart(result, takeUntil(address, "#"), ":@/?");
  if (!address.empty()) {
    result += '#';
    appendPart(result, address.substr(1), ":@/?");
  }
  return result;
}

}  // namespace ScriptableApps
