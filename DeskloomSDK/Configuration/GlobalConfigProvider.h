#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "DeskloomSDK/Configuration/HostedConfig.h"

namespace DeskloomSDK {

/// The plug-in's own configuration, which the host keeps. A provider lives until the process ends; then it writes its
/// value a last time. Used on the main thread only.
template <typename ConfigValue>
class GlobalConfigProvider : public HostedConfig<ConfigValue> {
 public:
  /// Reads the configuration from the host and waits for the answer. `config` is the default value if the host's text
  /// cannot be read as a `ConfigValue`. Null if the host fails, after the user has dismissed an alert about it. Stops
  /// the process with a fatal error if the bundle has no identifier.
  static std::shared_ptr<GlobalConfigProvider> make() {
    const std::shared_ptr<GlobalConfigProvider> provider(new GlobalConfigProvider);
    return provider->begin(ConfigValue()) ? provider : nullptr;
  }

 private:
  GlobalConfigProvider() : HostedConfig<ConfigValue>(ConfigValue()) {}

  [[nodiscard]] APIResult<std::string> read() const override { return this->api().getGlobalConfig(); }
  [[nodiscard]] APIResult<void> write(std::string_view text) const override {
    return this->api().setGlobalConfig(text);
  }
};

}  // namespace DeskloomSDK
