#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// A tab as Firefox's session store has it.
struct FirefoxTab {
  std::vector<BrowserTab> history;
  /// The number of the page that is shown, from 1; 0 where it is the last one.
  std::int64_t index = 0;
  bool isHidden = false;
  bool isPrivate = false;
  /// What is in the address bar but not yet shown, and whether it is being loaded.
  std::string typedAddress;
  bool isLoadingTypedAddress = false;
};

/// A window as Firefox's session store has it.
struct FirefoxWindow {
  std::vector<FirefoxTab> tabs;
  /// The number of the tab that is shown, from 1.
  std::int64_t selected = 1;
  bool isPrivate = false;
  /// Its place among the windows, 1 for the one in front.
  std::optional<std::int64_t> place;
};

/// Takes the windows out of the JSON text of Firefox's session store while it is parsed, and lets everything else (form
/// data, cookies, closed windows) go by. The parse fails where the text is nested too deeply or holds too much.
class FirefoxStateReader final : public nlohmann::json_sax<nlohmann::json> {
 public:
  /// What was read so far; after a parse that succeeded, everything.
  [[nodiscard]] const std::vector<FirefoxWindow>& windows() const { return windows_; }
  /// The number of the window in front, from 1; 0 where the text does not tell.
  [[nodiscard]] std::int64_t selectedWindow() const { return selectedWindow_; }
  /// Whether there was a list of windows, empty or not.
  [[nodiscard]] bool isSession() const { return isSession_; }
  /// Whether the format is one that this class knows, as far as the text names it.
  [[nodiscard]] bool isKnownVersion() const { return isKnownFormat_ && version_ <= newestVersion; }

  bool null() override { return true; }
  bool boolean(bool value) override;
  bool number_integer(std::int64_t value) override;
  bool number_unsigned(std::uint64_t value) override;
  bool number_float(double value, const std::string& text) override;
  bool string(std::string& value) override;
  bool binary(nlohmann::json::binary_t& value) override;
  bool start_object(std::size_t size) override;
  bool key(std::string& name) override;
  bool end_object() override;
  bool start_array(std::size_t size) override;
  bool end_array() override;
  bool parse_error(std::size_t position, const std::string& token, const nlohmann::detail::exception& error) override;

 private:
  static constexpr std::int64_t newestVersion = 1;

  bool open(bool isArray);
  bool close();
  void add();
  /// How many of the containers on the way to a page are open, where the current value is in the innermost one; else 0.
  [[nodiscard]] std::size_t level() const { return depth_ == onTheWay_ ? depth_ : 0; }
  [[nodiscard]] bool isInVersion() const { return depth_ == 2 && onTheWay_ == 1 && key_ == "version"; }

  std::vector<FirefoxWindow> windows_;
  std::int64_t selectedWindow_ = 0;
  bool isSession_ = false;
  bool isKnownFormat_ = true;
  std::int64_t version_ = 0;

  /// The containers that are open, and how many of them, from the outermost on, are on the way to a page.
  std::size_t depth_ = 0;
  std::size_t onTheWay_ = 0;
  std::size_t count_ = 0;
  std::string key_;
};

}  // namespace BrowserSessions
