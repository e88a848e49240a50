#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// A tab in Firefox's session store.
struct FirefoxTab {
  std::vector<BrowserTab> history;
  /// The number of the page that is shown, from 1; 0 for the last page.
  std::int64_t index = 0;
  bool isHidden = false;
  bool isPrivate = false;
  /// The text in the address bar whose page is not shown yet, and whether that page is being loaded.
  std::string typedAddress;
  bool isLoadingTypedAddress = false;
};

/// A window in Firefox's session store.
struct FirefoxWindow {
  std::vector<FirefoxTab> tabs;
  /// The number of the tab that is shown, from 1.
  std::int64_t selected = 1;
  bool isPrivate = false;
  /// Its place among the windows, 1 for the one in front.
  std::optional<std::int64_t> place;
};

/// Picks the windows out of the JSON text of Firefox's session store while it is parsed, and skips everything else
/// (form data, cookies, closed windows). The parse fails if the text is nested too deeply or has too many windows, tabs
/// and pages.
class FirefoxStateReader final : public nlohmann::json_sax<nlohmann::json> {
 public:
  /// The windows read so far: all of them after a successful parse.
  [[nodiscard]] const std::vector<FirefoxWindow>& windows() const { return windows_; }
  /// The number of the window in front, from 1; 0 if the text has none.
  [[nodiscard]] std::int64_t selectedWindow() const { return selectedWindow_; }
  /// Whether the text has a list of windows, empty or not.
  [[nodiscard]] bool isSession() const { return isSession_; }
  /// Whether this class knows the format that the text names. A text without one counts as known.
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
  /// How many containers on the way to a page are open, if the current value is in the innermost of them; else 0.
  [[nodiscard]] std::size_t level() const { return depth_ == onTheWay_ ? depth_ : 0; }
  [[nodiscard]] bool isInVersion() const { return depth_ == 2 && onTheWay_ == 1 && key_ == "version"; }

  std::vector<FirefoxWindow> windows_;
  std::int64_t selectedWindow_ = 0;
  bool isSession_ = false;
  bool isKnownFormat_ = true;
  std::int64_t version_ = 0;

  /// The number of open containers, and how many of them, counted from the outermost, are on the way to a page.
  std::size_t depth_ = 0;
  std::size_t onTheWay_ = 0;
  std::size_t count_ = 0;
  std::string key_;
};

}  // namespace BrowserSessions
