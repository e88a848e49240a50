#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "DeskloomSDK/Configuration/HostedConfig.h"

namespace DeskloomSDK {

/// The plug-in's own configuration, kept in the host. Once made, a provider lives until the process ends, when it
/// writes its value a last time. For the main thread alone.
template <typename ConfigValue>
class GlobalConfigProvider : public HostedConfig<ConfigValue> {
 public:
  /// Reads the configuration from the host, which takes as long as the host does. A text that is no such value yields
  /// the default one. None where the host cannot be read, once the user has dismissed the alert that says so. Stops the
  /// process with a fatal error where the bundle has no identifier.
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
