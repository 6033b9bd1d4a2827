#include "platform/linux/bus/BusAddress.h"

#include "tests/linux/session/BusFixture.h"

#include <csignal>
#include <cstdlib>
#include <future>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Registration;
using platform::linux::hideMuteBuses;
using platform::linux::sessionBusAddress;

std::string addressForTheToolkit() {
  return std::getenv("DBUS_SESSION_BUS_ADDRESS");
}

class BusAddressTest : public BusTest {};

TEST_F(BusAddressTest, OfABusThatAnswersStays) {
  EXPECT_FALSE(hideMuteBuses(30s));
  EXPECT_EQ(addressForTheToolkit(), daemon_.address());
}

TEST_F(BusAddressTest, OfABusThatHasGoneStays) {
  daemon_.stop();
  EXPECT_FALSE(hideMuteBuses(30s));
  EXPECT_EQ(addressForTheToolkit(), daemon_.address());
}

TEST_F(BusAddressTest, OfAMuteBusIsKeptFromTheToolkitAlone) {
  daemon_.signal(SIGSTOP);
  {
    const Registration hidden = hideMuteBuses(10ms);
    EXPECT_TRUE(hidden);
    EXPECT_NE(addressForTheToolkit(), daemon_.address());
    EXPECT_EQ(sessionBusAddress(), daemon_.address());
  }
  EXPECT_EQ(addressForTheToolkit(), daemon_.address());
}

TEST_F(BusAddressTest, OfAMuteServiceForAccessibilityIsKeptFromTheToolkit) {
  const FakeService launcher(daemon_.address(), "org.a11y.Bus");
  {
    const Registration hidden = hideMuteBuses(1s);
    EXPECT_TRUE(hidden);
    EXPECT_STREQ(std::getenv("AT_SPI_BUS_ADDRESS"), "unix:path=/dev/null");
    EXPECT_EQ(addressForTheToolkit(), daemon_.address());
  }
  EXPECT_EQ(std::getenv("AT_SPI_BUS_ADDRESS"), nullptr);
}

TEST_F(BusAddressTest, OfAMuteBusForAccessibilityIsKeptFromTheToolkit) {
  const TemporaryFolder folder;
  const BusDaemon accessibility(folder.path());
  accessibility.signal(SIGSTOP);
  FakeService launcher(daemon_.address(), "org.a11y.Bus");
  launcher.answerWith([asked = 0, address = accessibility.address()](sd_bus_message* answer) mutable {
    if (asked++ == 0) {
      sd_bus_message_append(answer, "v", "b", 1);
    } else {
      sd_bus_message_append(answer, "s", address.c_str());
    }
  });
  EXPECT_TRUE(hideMuteBuses(200ms));
}

TEST_F(BusAddressTest, OfAServiceThatIsMuteOnlyAboutScreenReadersIsKeptFromTheToolkit) {
  FakeService launcher(daemon_.address(), "org.a11y.Bus");
  std::promise<void> over;
  launcher.answerWith([asked = 0, isOver = over.get_future().share()](sd_bus_message* answer) mutable {
    if (asked++ > 0) {
      isOver.wait();
    }
    sd_bus_message_append(answer, "v", "b", 0);
  });
  EXPECT_TRUE(hideMuteBuses(200ms));
  over.set_value();
}

TEST_F(BusAddressTest, OfAMuteRegistryForAccessibilityIsKeptFromTheToolkit) {
  const TemporaryFolder folder;
  const BusDaemon accessibility(folder.path());
  const FakeService registry(accessibility.address(), "org.a11y.atspi.Registry");
  Environment environment;
  environment.set("DBUS_SESSION_BUS_ADDRESS", daemon_.address());
  EXPECT_TRUE(hideMuteBuses(200ms, accessibility.address()));
  environment.set("AT_SPI_BUS_ADDRESS", accessibility.address());
  EXPECT_TRUE(hideMuteBuses(200ms));
}

TEST_F(BusAddressTest, OfAServiceForAccessibilityThatAnswersStays) {
  FakeService launcher(daemon_.address(), "org.a11y.Bus");
  for (const char* type : {"b", "s", "v", ""}) {
    launcher.answerWith([type](sd_bus_message* m) {
      if (*type == 'v') {
        sd_bus_message_append(m, "v", "b", 0);
      } else if (*type == 's') {
        sd_bus_message_append(m, "s", "no");
      } else {
        sd_bus_message_append(m, type, 0);
      }
    });
    EXPECT_FALSE(hideMuteBuses(30s)) << type;
  }
}

}  // namespace
}  // namespace roomlattice::tests
