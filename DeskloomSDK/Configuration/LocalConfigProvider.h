#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "DeskloomSDK/Configuration/HostedConfig.h"

namespace DeskloomSDK {

/// The configuration of one action that the user has set up in the host, kept there. Once made, a provider lives until
/// the process ends, when it writes its value a last time; of two for one action, the one that does so later wins. For
/// the main thread alone.
template <typename ConfigValue>
class LocalConfigProvider : public HostedConfig<ConfigValue> {
 public:
  /// Reads the configuration of the action from the host, which takes as long as the host does. A text that is no such
  /// value yields `defaultConfig`. None where the host cannot be read, once the user has dismissed the alert that says
  /// so.
  static std::shared_ptr<LocalConfigProvider> make(std::string actionID, ConfigValue defaultConfig) {
    const std::shared_ptr<LocalConfigProvider> provider(
        new LocalConfigProvider(std::move(actionID), std::move(defaultConfig)));
    return provider->begin(provider->defaultConfig()) ? provider : nullptr;
  }

  /// The host's identifier of the action.
  [[nodiscard]] const std::string& actionID() const { return actionID_; }
  /// The value where the host's text is none of its kind.
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
