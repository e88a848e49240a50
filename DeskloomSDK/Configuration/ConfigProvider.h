#pragma once

#include <memory>

namespace DeskloomSDK {

/// What all configuration providers are, so that they can be held together. It asks nothing of them.
class ConfigProvider {
 public:
  ConfigProvider() = default;
  ConfigProvider(const ConfigProvider&) = delete;
  ConfigProvider& operator=(const ConfigProvider&) = delete;
  virtual ~ConfigProvider() = default;

 protected:
  /// Holds the provider until the process ends: it is still to write its value then.
  static void keep(std::shared_ptr<const ConfigProvider> provider);
};

}  // namespace DeskloomSDK
