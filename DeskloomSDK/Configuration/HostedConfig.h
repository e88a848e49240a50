#pragma once

#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "DeskloomSDK/Configuration/AppTerminationObserver.h"
#include "DeskloomSDK/Configuration/ConfigProvider.h"
#include "DeskloomSDK/Configuration/DelayedActionController.h"
#include "DeskloomSDK/Configuration/DeskloomActionConfig.h"
#include "DeskloomSDK/Host/DeskloomAPI.h"
#include "DeskloomSDK/JSON/JSONText.h"
#include "DeskloomSDK/JSON/StrictDecoding.h"
#include "Platform/Error.h"
#include "Platform/Services.h"
#include "Platform/Windows.h"

namespace DeskloomSDK {

/// What a configuration provider was doing when it failed.
enum class ConfigOperation { read, save };

/// The alert for a configuration that could not be read or saved, with the reason.
Platform::Alert configAlert(const Platform::Error& error, ConfigOperation operation);

/// Shows the alert for a configuration that could not be read, and waits until the user dismisses it.
void showConfigAlert(const Platform::Error& error);

/// Holds the provider until the process ends, when it still has to write its value.
void keepUntilProcessEnds(std::shared_ptr<const ConfigProvider> provider);

/// What the configuration providers have in common: a value that is read from the host once, and written back on
/// request and at the end of the process. A derived class says which of the host's texts it is. Used on the main thread
/// only.
template <typename ConfigValue>
class HostedConfig : public ConfigProvider, public std::enable_shared_from_this<HostedConfig<ConfigValue>> {
  static_assert(sizeof(RequireActionConfig<ConfigValue>) > 0);

 public:
  /// The current value. Setting it writes nothing.
  ConfigValue config;

  /// Asks for the value to be written to the host about a second after the last of a burst of calls, and returns at
  /// once. If the write fails, the user sees an alert and `config` stays as it is.
  void save() {
    if (!writeAction_) {
      constexpr double quietPeriod = 1.0;
      writeAction_.emplace(quietPeriod, std::nullopt,
                           [this] { static_cast<void>(guardedByAlert(write(encodedConfig()))); });
    }
    writeAction_->perform();
  }

 protected:
  /// Off the main thread, stops a debug build with a fatal error.
  explicit HostedConfig(ConfigValue initial) : config(std::move(initial)) {
#ifndef NDEBUG
    if (!Platform::services().queues.isMainThread())
      Platform::fatalError("A configuration provider can be made on the main thread only.");
#endif
  }

  /// Reads the value, or takes `fallback` if the host's text cannot be read as a `ConfigValue`. From now on, the
  /// provider lives until the application quits, and then writes its value. False if the host failed, after an alert
  /// about it.
  bool begin(const ConfigValue& fallback) {
    const auto text = guardedByAlert(read());
    if (!text)
      return false;
    config = decoded(*text, fallback);
    keepUntilProcessEnds(this->shared_from_this());
    appTerminationObserver_.emplace([this] { [[maybe_unused]] const auto result = write(encodedConfig()); });
    return true;
  }

  /// Reads and writes the host's texts.
  [[nodiscard]] const DeskloomAPI& api() const { return api_; }

 private:
  [[nodiscard]] virtual APIResult<std::string> read() const = 0;
  [[nodiscard]] virtual APIResult<void> write(std::string_view text) const = 0;

  /// Passes a result on, after an alert if it is an error. The alert says that reading failed even if saving did.
  template <typename Result>
  static Result guardedByAlert(Result result) {
    if (!result)
      showConfigAlert(result.error());
    return result;
  }

  // The value's own conversions may throw anything.
  static ConfigValue decoded(std::string_view text, const ConfigValue& fallback) {
    try {
      const auto json = decodeJSON(text);
      return json ? decodeStrictly<ConfigValue>(*json).value_or(fallback) : fallback;
    } catch (...) {
      return fallback;
    }
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
