#include "tests/linux/session/BusDaemon.h"

#include "tests/linux/session/AnnouncementPipe.h"
#include "tests/linux/session/TextFile.h"

#include <stdexcept>

namespace roomlattice::tests {
namespace {

/// Starts nothing by itself but what the window managers cannot do without. As many answers may be awaited as on the
/// bus of a session.
constexpr const char* busConfiguration =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir=@FOLDER@</listen>
  <servicedir>@FOLDER@</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
  <limit name="max_replies_per_connection">50000</limit>
</busconfig>
)";

}  // namespace

BusDaemon::BusDaemon(const std::filesystem::path& folder) {
  const std::filesystem::path configuration = folder / "bus.conf";
  writeText(configuration, replaceAll(busConfiguration, "@FOLDER@", folder.string()));
  AnnouncementPipe ready;
  process_ = std::make_unique<ChildProcess>(std::vector<std::string>{
      "dbus-daemon", "--config-file=" + configuration.string(), "--nofork", "--print-address=" + ready.writer()});
  address_ = ready.readLine();
  if (address_.empty()) {
    throw std::runtime_error("the message bus did not start: " + process_->errorOutput());
  }
}

Environment::Variables BusDaemon::variables() const {
  return {{"DBUS_SESSION_BUS_ADDRESS", address_}, {"DBUS_SYSTEM_BUS_ADDRESS", address_}};
}

}  // namespace roomlattice::tests
