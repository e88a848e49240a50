#pragma once

namespace DeskloomSDK {

/// What all configuration providers are, so that they can be held together. It asks nothing of them.
class ConfigProvider {
 public:
  ConfigProvider() = default;
  ConfigProvider(const ConfigProvider&) = delete;
  ConfigProvider& operator=(const ConfigProvider&) = delete;
  virtual ~ConfigProvider() = default;
};

}  // namespace DeskloomSDK
