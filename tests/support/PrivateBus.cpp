#include "tests/support/PrivateBus.h"

#include <stdexcept>

#include <unistd.h>

namespace Tests {

namespace {

// The limits are those of a desktop's session bus; a bus type's own defaults
// would cut bursts short.
std::string configurationFor(const std::string& address)
{
    return R"(<busconfig>
  <type>session</type>
  <listen>)" +
           address + R"(</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
  <limit name="max_incoming_bytes">1000000000</limit>
  <limit name="max_outgoing_bytes">1000000000</limit>
  <limit name="max_message_size">1000000000</limit>
  <limit name="max_completed_connections">100000</limit>
  <limit name="max_connections_per_user">100000</limit>
  <limit name="max_match_rules_per_connection">50000</limit>
</busconfig>
)";
}

}  // namespace

PrivateBus::PrivateBus() : address_("unix:path=" + folder_ / "bus"), variable_("DBUS_SESSION_BUS_ADDRESS", address_)
{
    folder_.write("bus.conf", configurationFor(address_));
    start();
}

void PrivateBus::stop()
{
    daemon_.reset();
    ::unlink((folder_ / "bus").c_str());
}

void PrivateBus::start()
{
    if (daemon_) return;
    const std::vector<std::string> command{"dbus-daemon", "--nofork", "--nopidfile", "--print-address=1",
                                           "--config-file=" + folder_ / "bus.conf"};
    daemon_.emplace(command, ChildOptions{.streams = ChildStreams::output});
    // The daemon prints its address once it listens.
    if (!daemon_->readLine()) throw std::runtime_error("dbus-daemon did not start on " + address_);
}

}  // namespace Tests
