#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>

namespace DesktopSupport {

/// The result of `work`, or `nullopt` if it takes longer than `limit`. In that case `work` continues in a detached
/// thread, even while the process ends, so it must not refer to anything that may be destroyed before.
template <typename Work>
auto resultWithin(std::chrono::milliseconds limit, Work work) -> std::optional<decltype(work())> {
  auto result = std::make_shared<std::promise<decltype(work())>>();
  auto received = result->get_future();
  std::thread([result, work = std::move(work)]() mutable { result->set_value(work()); }).detach();
  if (received.wait_for(limit) != std::future_status::ready)
    return std::nullopt;
  return received.get();
}

/// What `work` finds in the file system, or `nullopt` if it takes longer than `limit` or no process can be started. It
/// runs in a process of its own: even SIGKILL does not end the wait for a network mount whose server is silent, so a
/// process with a thread that waits for one would not end.
std::optional<std::string> foundWithin(std::chrono::milliseconds limit, const std::function<std::string()>& work);

/// The time limit for a file system that may be on another machine.
inline constexpr std::chrono::milliseconds fileSystemTime{1000};

}  // namespace DesktopSupport
