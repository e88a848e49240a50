#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "DeskloomSDK/Resources/Resource.h"
#include "Platform/Text/PercentEncoding.h"

/// The applications that a command to the host carries, as pairs of name and URL.
inline std::vector<std::pair<std::string, std::string>> sentApplications(const std::string& command) {
  constexpr std::string_view commandPrefix = "deskloom://gleanery/";
  EXPECT_TRUE(command.starts_with(commandPrefix)) << command;
  const auto payload = Platform::percentDecoded(std::string_view(command).substr(commandPrefix.size()));
  const auto resources = DeskloomSDK::decodeResources(payload).value();
  std::vector<std::pair<std::string, std::string>> result;
  for (const auto& resource : resources) {
    EXPECT_EQ(resource.type(), DeskloomSDK::ResourceType::application);
    result.emplace_back(resource.name(), resource.url().absoluteString());
  }
  return result;
}
