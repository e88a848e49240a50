#include "UpdateCheck/UpdateChecker.h"

#include <optional>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "UpdateCheck/UpdateFeed.h"
#include "UpdateCheck/UpdateNotification.h"

namespace UpdateCheck {

namespace {

std::string shownVersion(const AppcastItem& item) {
  return item.shortVersion.value_or(item.version.value_or(""));
}

}  // namespace

void UpdateChecker::run() const {
  if (const Result checked = check(); !checked)
    log("could not check for an update of " + settings_.name + ": " + checked.error());
}

UpdateChecker::Result UpdateChecker::check() const {
  const auto locked = UpdateStateFile::lock(surroundings_.stateFolder, settings_.identifier);
  if (!locked)
    return std::unexpected(locked.error());
  const std::optional<UpdateStateFile>& file = *locked;
  return file ? checkWith(*file) : Result();
}

UpdateChecker::Result UpdateChecker::checkWith(const UpdateStateFile& file) const {
  UpdateState state = file.read();
  if (!state.isDue(surroundings_.now, settings_.interval))
    return {};
  state.lastAttempt = surroundings_.now;
  if (const Result noted = file.write(state); !noted)
    return noted;
  const auto feed = loadFeed(settings_);
  if (!feed)
    return std::unexpected(feed.error());
  state.lastCheck = surroundings_.now;
  if (const Result noted = file.write(state); !noted)
    return noted;
  return compareWith(*feed, file, std::move(state));
}

UpdateChecker::Result UpdateChecker::compareWith(std::string_view feed, const UpdateStateFile& file,
                                                 UpdateState state) const {
  const auto appcast = Appcast::parse(feed);
  if (!appcast)
    return std::unexpected("the feed cannot be read: " + appcast.error());
  const auto item = appcast->newestAfter(settings_.version, surroundings_.kernelRelease);
  if (!item) {
    log("there is no update of " + settings_.name + ' ' + settings_.version);
    return {};
  }
  if (state.hasAnnounced(item->version.value_or("")))
    return {};
  return announce(*item, file, std::move(state));
}

UpdateChecker::Result UpdateChecker::announce(const AppcastItem& item, const UpdateStateFile& file,
                                              UpdateState state) const {
  auto bus = DesktopSupport::SessionBus::connect();
  if (!bus)
    return std::unexpected("the user cannot be told: " + bus.error().message);
  const auto page = item.page();
  const UpdateTexts texts(surroundings_.strings);
  UpdateNotification notification(std::move(*bus));
  const auto shown = notification.show({.identifier = settings_.identifier,
                                        .applicationName = settings_.name,
                                        .summary = texts.summary(settings_.name),
                                        .body = texts.body(shownVersion(item)),
                                        .button = page ? std::optional(texts.button()) : std::nullopt});
  if (!shown)
    return std::unexpected("the user cannot be told: " + shown.error().message);
  state.announcedVersion = item.version;
  if (const Result noted = file.write(state); !noted)
    return noted;
  log("told the user about " + settings_.name + ' ' + shownVersion(item));
  // It waits even if there is no page: some desktops remove a notification when its process ends.
  if (!notification.awaitAnswer(patience) || !page)
    return {};
  if (const Result opened = openPage(*page); !opened)
    log("could not open the page about " + settings_.name + ' ' + shownVersion(item) + ": " + opened.error());
  return {};
}

void UpdateChecker::log(std::string_view message) const {
  surroundings_.log.write(DesktopSupport::displayable(message));
}

}  // namespace UpdateCheck
