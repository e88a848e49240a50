#pragma once

#include <expected>
#include <string>
#include <vector>

#include "DeskloomSDK/Resources/Resource.h"
#include "Platform/Error.h"

namespace Gleanery {

using DeskloomSDK::Resource;

/// A source of resources: what one desktop application has open.
class ResourceProvider {
 public:
  ResourceProvider() = default;
  ResourceProvider(const ResourceProvider&) = delete;
  ResourceProvider& operator=(const ResourceProvider&) = delete;
  virtual ~ResourceProvider() = default;

  /// The name by which the host selects this provider.
  [[nodiscard]] virtual const std::string& identifier() const = 0;

  /// What the application has open at this moment, in its own order. Each call asks the application again and waits for
  /// the answer.
  [[nodiscard]] virtual std::expected<std::vector<Resource>, Platform::Error> fetchResources() const = 0;
};

}  // namespace Gleanery
