#pragma once

namespace DeskloomSDK {

/// The base of all configuration providers, so that they can be held together.
class ConfigProvider {
 public:
  ConfigProvider() = default;
  ConfigProvider(const ConfigProvider&) = delete;
  ConfigProvider& operator=(const ConfigProvider&) = delete;
  virtual ~ConfigProvider() = default;
};

}  // namespace DeskloomSDK
