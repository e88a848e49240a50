#include "HostStandIn/Host.h"

#include <chrono>
#include <iostream>
#include <limits>
#include <utility>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/Bus/SessionBus.h"

namespace HostStandIn {

using DesktopSupport::BusError;
using DesktopSupport::SessionBus;

namespace {

constexpr std::chrono::seconds answerTime(25);

}  // namespace

std::expected<std::unique_ptr<Host>, std::string> Host::create(const Options& options) {
  auto bus = SessionBus::connect();
  if (!bus)
    return std::unexpected(bus.error().message);
  std::unique_ptr<Host> host(new Host(options, std::move(*bus)));
  if (const auto opened = host->openLog(options); !opened)
    return std::unexpected(opened.error());
  if (const auto served = host->serve(); !served)
    return std::unexpected(served.error().message);
  return host;
}

Host::Host(const Options& options, SessionBus bus)
    : output_(options.decode ? Output::Format::table : Output::Format::url, std::cout, std::cerr),
      commands_(options.setup),
      enough_(options.exitAfter.value_or(std::numeric_limits<std::size_t>::max())),
      loop_(g_main_loop_new(nullptr, FALSE)),
      bus_(std::move(bus)) {
  bus_.setWhenClosed([this] {
    isBusGone_ = true;
    g_main_loop_quit(loop_.get());
  });
}

Host::~Host() {
  bus_.setWhenClosed(nullptr);
}

std::expected<void, std::string> Host::openLog(const Options& options) {
  if (!options.log)
    return {};
  return output_.logTo(*options.log);
}

// Takes the name last, so that whoever sees it on the bus finds the interfaces too.
std::expected<void, BusError> Host::serve() {
  application_.emplace(bus_, [this](const std::string& url) { receive(url); });
  scripting_.emplace(bus_, commands_, [this] { output_.printLine("install plugin"); });
  auto name = BusName::acquire(bus_, "com.quillary.Deskloom");
  if (!name)
    return std::unexpected(name.error());
  name_ = std::move(*name);
  return {};
}

std::expected<void, std::string> Host::run() {
  g_main_loop_run(loop_.get());
  if (isBusGone_)
    return std::unexpected("the session bus closed the connection");
  // The sender of the last URL still needs its answer.
  DesktopSupport::BusDaemon(bus_, answerTime).synchronize();
  return {};
}

void Host::receive(const std::string& url) {
  output_.printURL(url);
  ++received_;
  if (received_ >= enough_)
    g_main_loop_quit(loop_.get());
}
}  // namespace HostStandIn
