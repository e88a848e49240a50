#include "Platform/NotificationCenter.h"

#include <algorithm>
#include <utility>

namespace Platform {

NotificationCenter::Token NotificationCenter::addObserver(std::string_view name, const void* object,
                                                          Observer observer) {
  const std::lock_guard lock(mutex_);
  const Token token{++lastToken_};
  entries_.push_back({token, std::string(name), object, std::move(observer)});
  return token;
}

void NotificationCenter::removeObserver(Token token) {
  const std::lock_guard lock(mutex_);
  std::erase_if(entries_, [&](const Entry& entry) { return entry.token == token; });
}

void NotificationCenter::post(const Notification& notification) {
  for (const Token token : interested(notification))
    if (const Observer observer = find(token))
      observer(notification);
}

std::vector<NotificationCenter::Token> NotificationCenter::interested(const Notification& notification) const {
  const std::lock_guard lock(mutex_);
  std::vector<Token> tokens;
  for (const Entry& entry : entries_)
    if (entry.name == notification.name && (entry.object == nullptr || entry.object == notification.object))
      tokens.push_back(entry.token);
  return tokens;
}

/// A copy of the observer, as it may end its own observation; null if it has ended.
NotificationCenter::Observer NotificationCenter::find(Token token) const {
  const std::lock_guard lock(mutex_);
  const auto found = std::ranges::find(entries_, token, &Entry::token);
  return found == entries_.end() ? nullptr : found->observer;
}

}  // namespace Platform
