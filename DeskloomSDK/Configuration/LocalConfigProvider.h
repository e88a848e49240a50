#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "DeskloomSDK/Configuration/HostedConfig.h"

namespace DeskloomSDK {

/// The configuration of one action, which the host keeps. A provider lives until the process ends; then it writes its
/// value a last time. If an action has two providers, the one that writes later wins. Used on the main thread only.
template <typename ConfigValue>
class LocalConfigProvider : public HostedConfig<ConfigValue> {
 public:
  /// Reads the action's configuration from the host and waits for the answer. `config` is `defaultConfig` if the host's
  /// text cannot be read as a `ConfigValue`. Null if the host fails, after the user has dismissed an alert about it.
  static std::shared_ptr<LocalConfigProvider> make(std::string actionID, ConfigValue defaultConfig) {
    const std::shared_ptr<LocalConfigProvider> provider(
        new LocalConfigProvider(std::move(actionID), std::move(defaultConfig)));
    return provider->begin(provider->defaultConfig()) ? provider : nullptr;
  }

  /// The host's identifier of the action.
  [[nodiscard]] const std::string& actionID() const { return actionID_; }
  /// The value that is used if the host's text cannot be read as a `ConfigValue`.
  [[nodiscard]] const ConfigValue& defaultConfig() const { return defaultConfig_; }

 private:
  LocalConfigProvider(std::string actionID, ConfigValue defaultConfig)
      : HostedConfig<ConfigValue>(defaultConfig),
        actionID_(std::move(actionID)),
        defaultConfig_(std::move(defaultConfig)) {}

  [[nodiscard]] APIResult<std::string> read() const override { return this->api().getConfig(actionID_); }
  [[nodiscard]] APIResult<void> write(std::string_view text) const override {
    return this->api().setConfig(text, actionID_);
  }

  std::string actionID_;
  ConfigValue defaultConfig_;
};

}  // namespace DeskloomSDK
