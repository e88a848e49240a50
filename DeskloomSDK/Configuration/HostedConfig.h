#pragma once

#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "DeskloomSDK/Configuration/AppTerminationObserver.h"
#include "DeskloomSDK/Configuration/ConfigAlert.h"
#include "DeskloomSDK/Configuration/ConfigProvider.h"
#include "DeskloomSDK/Configuration/DelayedActionController.h"
#include "DeskloomSDK/Configuration/DeskloomActionConfig.h"
#include "DeskloomSDK/Host/DeskloomAPI.h"
#include "DeskloomSDK/JSON/JSONText.h"
#include "DeskloomSDK/JSON/StrictDecoding.h"
#include "Platform/Error.h"
#include "Platform/Services.h"

namespace DeskloomSDK {

/// What the configuration providers have in common: a value that is read from the host once, and written back on
/// request and at the end. Which of the host's texts it is, they say. For the main thread alone.
template <typename ConfigValue>
class HostedConfig : public ConfigProvider, public std::enable_shared_from_this<HostedConfig<ConfigValue>> {
  static_assert(sizeof(RequireActionConfig<ConfigValue>) > 0);

 public:
  /// The current value. Setting it writes nothing.
  ConfigValue config;

  /// Asks for the value to be written to the host, as it will be about a second after the last of a burst of such
  /// requests. Where that fails, the user is shown an alert, and `config` stays as it is. Returns at once.
  void save() {
    if (!writeAction_) {
      constexpr double quietPeriod = 1.0;
      writeAction_.emplace(quietPeriod, std::nullopt,
                           [this] { static_cast<void>(guardedByAlert(write(encodedConfig()))); });
    }
    writeAction_->perform();
  }

 protected:
  /// Stops a debug build with a fatal error off the main thread.
  explicit HostedConfig(ConfigValue initial) : config(std::move(initial)) {
#ifndef NDEBUG
    if (!Platform::services().queues.isMainThread())
      Platform::fatalError("A configuration provider can be made on the main thread only.");
#endif
  }

  /// Reads the value, which is `fallback` where the host's text is none of its kind, and has it written when the
  /// application quits, to which end it lives on. False where the host could not be read, of which the user was told.
  bool begin(const ConfigValue& fallback) {
    const auto text = guardedByAlert(read());
    if (!text)
      return false;
    config = decoded(*text, fallback);
    ConfigProvider::keep(this->shared_from_this());
    appTerminationObserver_.emplace([this] { static_cast<void>(write(encodedConfig())); });
    return true;
  }

  /// What reads and writes the host's texts.
  [[nodiscard]] const DeskloomAPI& api() const { return api_; }

 private:
  [[nodiscard]] virtual APIResult<std::string> read() const = 0;
  [[nodiscard]] virtual APIResult<void> write(std::string_view text) const = 0;

  // The value's own conversions may throw whatever they like.
  static ConfigValue decoded(std::string_view text, const ConfigValue& fallback) {
    try {
      if (const auto json = decodeJSON(text))
        return decodeStrictly<ConfigValue>(*json).value_or(fallback);
    } catch (...) {
    }
    return fallback;
  }

  [[nodiscard]] std::string encodedConfig() const {
    try {
      return encodeJSON(nlohmann::json(config)).value_or("");
    } catch (...) {
      return "";
    }
  }

  DeskloomAPI api_;
  std::optional<AppTerminationObserver> appTerminationObserver_;
  std::optional<DelayedActionController> writeAction_;
};

}  // namespace DeskloomSDK
