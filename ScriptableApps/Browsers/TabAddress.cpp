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

// What may stand in every part of an address but the scheme, by byte.
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

// Takes over the part of the address that `text` is. `allowed` may stand in it besides what is plain.
void appendPart(std::string& address, std::string_view text, std::string_view allowed) {
  for (std::size_t position = 0; position < text.size(); ++position) {
    const char character = text[position];
    if (isPlain(character) || allowed.contains(character) || isEscape(text.substr(position)))
      address += character;
    else
      appendEscaped(address, character);
  }
}

// Takes the scheme off the address, with its colon; empty where there is none.
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

// Takes off what is in front of the first of `ends`, or everything where there is none of them.
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

// Whether the host of an address with this scheme is a name of the domain name system. The scheme has its colon.
bool hasDomainName(std::string_view scheme) {
  constexpr std::array<std::string_view, 5> schemes = {"http:", "https:", "ws:", "wss:", "ftp:"};
  return std::ranges::find(schemes, DesktopSupport::lowerCase(scheme)) != schemes.end();
}

bool isASCIIHost(std::string_view host) {
  return std::ranges::all_of(host, [](char character) {
    return letters.contains(character) || digits.contains(character) || std::string_view("-._").contains(character);
  });
}

// The ASCII form (xn--…) of an international host name. Empty if it has none from which the same name can be had again,
// since that would be another host.
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
  // Without a scheme, a colon in the first segment would make one of what is in front of it.
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
