#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "BrowserSessions/Chromium/ToldSession.h"
#include "BrowserSessions/Companion/CompanionAnswer.h"
#include "BrowserSessions/Companion/Companions.h"
#include "Companions/Browser/Host/ExtensionMessage.h"
#include "Companions/Browser/Host/NativeMessages.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "Fuzz/Target.h"

namespace {

using BrowserSessions::CompanionAnswer;
using DesktopSupport::owned;
using Fuzz::require;

constexpr const char* replyType = "(ua{sv}a(xsbs))";

// The messages in a browser's bytes, which arrive in pieces of this size. The last one is why no more can be read.
std::vector<std::string> messagesIn(std::string_view bytes, std::size_t pieceSize) {
  BrowserCompanion::MessageReader reader;
  std::vector<std::string> messages;
  for (std::size_t begin = 0; begin < bytes.size(); begin += pieceSize) {
    reader.add(bytes.substr(begin, pieceSize));
    for (;;) {
      auto next = reader.next();
      if (!next)
        messages.push_back(next.error());
      if (!next)
        return messages;
      std::optional<std::string>& complete = *next;
      if (!complete)
        break;
      messages.push_back(std::move(*complete));
    }
  }
  return messages;
}

void requireSound(const CompanionAnswer& answer) {
  const auto told = BrowserSessions::toldSession({answer, answer});
  require(told.windows.size() <= answer.windows.size(), "A window is told of once.");
  for (const auto& window : told.windows) {
    require(window.contents.activeTab < window.contents.tabs.size(), "A window shows one of its tabs.");
    for (const auto& tab : window.contents.tabs) {
      Fuzz::requireUTF8(tab.title);
      Fuzz::requireUTF8(tab.url);
    }
  }
}

void requireCarried(const CompanionAnswer& answer) {
  const auto carried = BrowserSessions::companionAnswerIn(owned(variantFrom(answer)).get());
  require(carried.has_value(), "What the extension tells can be read at the other end of the bus.");
  require(carried->windows.size() == answer.windows.size(), "No window is lost on the bus.");
  const auto again = BrowserSessions::companionAnswerIn(owned(variantFrom(*carried)).get());
  require(again && *again == *carried, "What the bus can carry is not changed.");
  requireSound(*carried);
}

void readMessage(const std::string& message) {
  auto told = BrowserCompanion::extensionMessage(message);
  if (!told) {
    require(DesktopSupport::isDisplayable(told.error()), "An error is one line.");
    return;
  }
  if (auto* part = std::get_if<BrowserCompanion::AnswerPart>(&*told))
    requireCarried({.browser = 1, .extension = "fuzz", .windows = std::move(part->windows)});
}

void readReply(std::string_view bytes) {
  const DesktopSupport::BytesHandle copy(g_bytes_new(bytes.data(), bytes.size()));
  const auto reply = owned(g_variant_new_from_bytes(G_VARIANT_TYPE(replyType), copy.get(), /*trusted=*/FALSE));
  if (const auto answer = BrowserSessions::companionAnswerIn(reply.get()))
    requireCarried(*answer);
  else
    require(DesktopSupport::isDisplayable(answer.error()), "An error is one line.");
}

}  // namespace

// The input is what a browser writes to the companion's program, or a letter, 'r', and the companion's reply on the
// bus. A first letter 'm' stands for one message, so that its length need not be right.
void Fuzz::run(std::string_view input) {
  if (input.starts_with('r'))
    return readReply(input.substr(1));
  if (input.starts_with('m'))
    return readMessage(std::string(input.substr(1)));
  const auto messages = messagesIn(input, std::max<std::size_t>(input.size(), 1));
  require(messages == messagesIn(input, 1), "Messages do not depend on how they arrive.");
  for (const std::string& message : messages)
    readMessage(message);
}
