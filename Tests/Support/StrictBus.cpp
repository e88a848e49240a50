#include "Tests/Support/StrictBus.h"

#include <stdexcept>
#include <string>

namespace TestSupport {

namespace {

constexpr const char* configuration =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-BUS Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <standard_session_servicedirs/>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
  <limit name="max_replies_per_connection">16</limit>
  <limit name="max_pending_service_starts">1</limit>
  <limit name="max_incoming_bytes">65536</limit>
  <limit name="max_outgoing_bytes">65536</limit>
  <limit name="max_names_per_connection">2</limit>
  <limit name="max_match_rules_per_connection">16</limit>
</busconfig>
)";

std::vector<std::string> commandLine(const std::filesystem::path& file) {
  return {"dbus-daemon", "--nofork", "--print-address=1", "--config-file=" + file.string()};
}

std::string addressOf(ChildProcess& daemon) {
  auto address = daemon.readLine();
  if (!address)
    throw std::runtime_error("the bus with low limits did not start");
  return *address;
}

}  // namespace

StrictBus::StrictBus()
    : daemon_(commandLine(folder_.write("bus.conf", configuration))),
      address_("DBUS_SESSION_BUS_ADDRESS", addressOf(daemon_)) {}

}  // namespace TestSupport
