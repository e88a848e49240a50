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

/// What `work` yields, if it does so within `limit`. Else it is left behind on a thread of its own, and nobody minds
/// when the process ends; so it refers to nothing that may be gone by then.
template <typename Work>
auto resultWithin(std::chrono::milliseconds limit, Work work) -> std::optional<decltype(work())> {
  auto result = std::make_shared<std::promise<decltype(work())>>();
  auto received = result->get_future();
  std::thread([result, work = std::move(work)]() mutable { result->set_value(work()); }).detach();
  if (received.wait_for(limit) != std::future_status::ready)
    return std::nullopt;
  return received.get();
}

/// What `work` finds in the file system, if it does so within `limit`; also none if no process can be started. It runs
/// in a process of its own, since even SIGKILL does not end the wait for a network mount whose server is silent: a
/// process with a thread that waits for one stays.
std::optional<std::string> foundWithin(std::chrono::milliseconds limit, const std::function<std::string()>& work);

/// How long a file system is waited for that may be another machine's.
inline constexpr std::chrono::milliseconds fileSystemTime{1000};

}  // namespace DesktopSupport
