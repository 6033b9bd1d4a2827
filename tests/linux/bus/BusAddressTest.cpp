#include "platform/linux/bus/BusAddress.h"

#include "tests/linux/session/BusFixture.h"

#include <csignal>
#include <cstdlib>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Registration;
using platform::linux::hideMuteSessionBus;
using platform::linux::sessionBusAddress;

std::string addressForTheToolkit() {
  return std::getenv("DBUS_SESSION_BUS_ADDRESS");
}

class BusAddressTest : public BusTest {};

TEST_F(BusAddressTest, OfABusThatAnswersStays) {
  EXPECT_FALSE(hideMuteSessionBus(30s));
  EXPECT_EQ(addressForTheToolkit(), daemon_.address());
}

TEST_F(BusAddressTest, OfABusThatHasGoneStays) {
  daemon_.stop();
  EXPECT_FALSE(hideMuteSessionBus(30s));
  EXPECT_EQ(addressForTheToolkit(), daemon_.address());
}

TEST_F(BusAddressTest, OfAMuteBusIsKeptFromTheToolkitAlone) {
  daemon_.signal(SIGSTOP);
  {
    const Registration hidden = hideMuteSessionBus(10ms);
    EXPECT_TRUE(hidden);
    EXPECT_NE(addressForTheToolkit(), daemon_.address());
    EXPECT_EQ(sessionBusAddress(), daemon_.address());
  }
  EXPECT_EQ(addressForTheToolkit(), daemon_.address());
}

}  // namespace
}  // namespace roomlattice::tests
