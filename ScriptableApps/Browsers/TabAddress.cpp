#include "ScriptableApps/Browsers/TabAddress.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>

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

// For each byte whether it is in a set of characters.
using CharacterSet = std::array<bool, 256>;

constexpr CharacterSet setOf(std::initializer_list<std::string_view> parts) {
  CharacterSet set = {};
  for (const std::string_view characters : parts)
    for (const char character : characters)
      set[static_cast<unsigned char>(character)] = true;
  return set;
}

// What may occur unencoded in the parts of an address.
constexpr CharacterSet inHost = setOf({letters, digits, marks, subDelimiters});
constexpr CharacterSet inUserInformation = setOf({letters, digits, marks, subDelimiters, ":"});
constexpr CharacterSet inFirstSegment = setOf({letters, digits, marks, subDelimiters, "@"});
constexpr CharacterSet inPath = setOf({letters, digits, marks, subDelimiters, ":@/"});
constexpr CharacterSet inQuery = setOf({letters, digits, marks, subDelimiters, ":@/?"});

constexpr CharacterSet setWithout(std::string_view characters) {
  CharacterSet set = setOf({characters});
  for (bool& isInSet : set)
    isInSet = !isInSet;
  return set;
}

// What does not end the parts of an address.
constexpr CharacterSet beforePath = setWithout("/?#");
constexpr CharacterSet beforeQuery = setWithout("?#");
constexpr CharacterSet beforeFragment = setWithout("#");

constexpr CharacterSet inScheme = setOf({letters, digits, "+-."});
constexpr CharacterSet inDomainName = setOf({letters, digits, "-._"});

// How many characters at the beginning of the text are in the set.
std::size_t lengthIn(const CharacterSet& set, std::string_view text) {
  const auto isInSet = [&set](char character) { return set[static_cast<unsigned char>(character)]; };
  return static_cast<std::size_t>(std::ranges::find_if_not(text, isInSet) - text.begin());
}

bool isEscape(std::string_view text) {
  return text.size() >= 3 && text[0] == '%' && hexDigits.contains(text[1]) && hexDigits.contains(text[2]);
}

void appendEscaped(std::string& address, char character) {
  const auto byte = static_cast<unsigned char>(character);
  address += {'%', hexDigits[byte >> 4U], hexDigits[byte & 15U]};
}

// Appends a part of an address. The characters in `allowed` stay unencoded.
void appendPart(std::string& address, std::string_view text, const CharacterSet& allowed) {
  while (!text.empty()) {
    const std::size_t length = lengthIn(allowed, text);
    address += text.substr(0, length);
    text.remove_prefix(length);
    if (text.empty())
      return;
    if (isEscape(text))
      address += '%';
    else
      appendEscaped(address, text.front());
    text.remove_prefix(1);
  }
}

// Removes the scheme with its colon from the address and yields it; empty if there is none.
std::string_view takeScheme(std::string_view& address) {
  const std::size_t length = lengthIn(inScheme, address);
  if (length == address.size() || address[length] != ':' || !letters.contains(address.front()))
    return {};
  const std::string_view scheme = address.substr(0, length + 1);
  address.remove_prefix(scheme.size());
  return scheme;
}

// Removes the text at the beginning of the address whose characters are in the set, and yields it.
std::string_view take(const CharacterSet& set, std::string_view& address) {
  const std::string_view part = address.substr(0, lengthIn(set, address));
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
  return lengthIn(inDomainName, host) == host.size();
}

// The ASCII form (xn--…) of an international host name. Empty if there is none, or if it converts back to a different
// name: then it would be another host.
std::string asciiHost(std::string_view host) {
  if (!DesktopSupport::isUTF8(host))
    return {};
  const std::string name(host);
  const DesktopSupport::CharsHandle ascii(g_hostname_to_ascii(name.c_str()));
  const DesktopSupport::CharsHandle back(ascii ? g_hostname_to_unicode(ascii.get()) : nullptr);
  return back && name == back.get() && isASCIIHost(ascii.get()) ? ascii.get() : std::string();
}

void appendHost(std::string& address, std::string_view host, std::string_view scheme) {
  if (isASCIIHost(host) || isIPv6Literal(host))
    address += host;
  else if (const std::string ascii = hasDomainName(scheme) ? asciiHost(host) : ""; !ascii.empty())
    address += ascii;
  else
    appendPart(address, host, inHost);
}

void appendAuthority(std::string& address, std::string_view authority, std::string_view scheme) {
  if (const auto at = authority.rfind('@'); at != std::string_view::npos) {
    appendPart(address, authority.substr(0, at), inUserInformation);
    address += '@';
    authority.remove_prefix(at + 1);
  }
  const auto portStart = authority.find_last_not_of(digits);
  const bool hasPort = portStart != std::string_view::npos && authority[portStart] == ':';
  appendHost(address, authority.substr(0, hasPort ? portStart : authority.size()), scheme);
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
    appendAuthority(result, take(beforePath, address), scheme);
  }
  // Without a scheme, a colon in the first segment would turn the text before it into one.
  if (scheme.empty() && !hasAuthority)
    appendPart(result, take(beforePath, address), inFirstSegment);
  appendPart(result, take(beforeQuery, address), inPath);
  appendPart(result, take(beforeFragment, address), inQuery);
  if (!address.empty()) {
    result += '#';
    appendPart(result, address.substr(1), inQuery);
  }
  return result;
}

}  // namespace ScriptableApps
