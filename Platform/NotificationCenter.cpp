#include "Platform/NotificationCenter.h"

#include <algorithm>
#include <utility>

namespace Platform {

NotificationCenter::Token NotificationCenter::addObserver(std::string_view name, const void* object,
                                                          Observer observer) {
  const Token token{++lastToken_};
  entries_.push_back({token, std::string(name), object, std::move(observer)});
  return token;
}

void NotificationCenter::removeObserver(Token token) {
  std::erase_if(entries_, [&](const Entry& entry) { return entry.token == token; });
}

void NotificationCenter::post(const Notification& notification) {
  std::vector<Token> interested;
  for (const Entry& entry : entries_) {
    if (entry.name == notification.name && (entry.object == nullptr || entry.object == notification.object))
      interested.push_back(entry.token);
  }
  for (const Token token : interested) {
    if (const Entry* entry = find(token)) {
      const Observer observer = entry->observer;  // an observer may end its own observation
      observer(notification);
    }
  }
}

const NotificationCenter::Entry* NotificationCenter::find(Token token) const {
  const auto found = std::ranges::find(entries_, token, &Entry::token);
  return found == entries_.end() ? nullptr : &*found;
}

}  // namespace Platform
