#include "platform/linux/bus/BusMessage.h"

#include "tests/fuzz/FuzzInput.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <sys/socket.h>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace roomlattice::tests {
namespace {

/// A connection that leads nowhere: only messages are made on it.
sd_bus* connection() {
  static sd_bus* bus = [] {
    std::array<int, 2> ends{-1, -1};
    sd_bus* made = nullptr;
    require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == 0 && sd_bus_new(&made) >= 0 &&
                sd_bus_set_fd(made, ends[0], ends[0]) >= 0 && sd_bus_start(made) >= 0,
            "there is a connection");
    return made;
  }();
  return bus;
}

/// Makes arguments out of any bytes: each one says what comes next, and some take further ones for a value.
class Writer {
 public:
  Writer(sd_bus_message* message, std::string_view bytes) : message_(message), bytes_(bytes) {}

  void write() {
    while (!bytes_.empty()) {
      writeOne(next());
    }
    while (depth_ > 0) {
      close();
    }
  }

 private:
  char next() {
    const char byte = bytes_.empty() ? '\0' : bytes_.front();
    bytes_.remove_prefix(bytes_.empty() ? 0 : 1);
    return byte;
  }

  std::string nextText() {
    std::string text(bytes_.substr(0, bytes_.find('\n')));
    bytes_.remove_prefix(std::min(text.size() + 1, bytes_.size()));
    return text.substr(0, text.find('\0'));
  }

  // What does not fit where it stands is refused by the library.
  void writeOne(char what) {
    switch (what) {
      case 's':
        sd_bus_message_append_basic(message_, 's', nextText().c_str());
        break;
      case 'o':
        sd_bus_message_append_basic(message_, 'o', nextText().c_str());
        break;
      case 'b':
        sd_bus_message_append(message_, "b", next() & 1);
        break;
      case 'u':
        sd_bus_message_append(message_, "u", static_cast<unsigned>(next()));
        break;
      case 'd':
        sd_bus_message_append(message_, "d", static_cast<double>(next()));
        break;
      case 'a':
      case 'v':
      case 'r':
      case 'e':
        depth_ += sd_bus_message_open_container(message_, what, nextText().c_str()) >= 0 ? 1 : 0;
        break;
      case ')':
        if (depth_ > 0) {
          close();
        }
        break;
      default:
        break;
    }
  }

  void close() {
    sd_bus_message_close_container(message_);
    --depth_;
  }

  sd_bus_message* message_;
  std::string_view bytes_;
  int depth_ = 0;
};

void readAll(const platform::linux::BusMessage& message) {
  using Entries = std::vector<std::tuple<std::uint32_t, std::string, std::string>>;
  for (std::size_t index = 0; index < 4; ++index) {
    message.argument<bool>(index);
    message.argument<std::uint32_t>(index);
    message.argument<double>(index);
    message.argument<std::string>(index);
    message.argument<std::vector<std::string>>(index);
    message.argument<std::tuple<double, double, double>>(index);
    message.argument<Entries>(index);
  }
  message.property<Entries>("desktops");
  message.property<std::string>("current");
}

}  // namespace
}  // namespace roomlattice::tests

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace roomlattice;
  sd_bus_message* message = nullptr;
  tests::require(sd_bus_message_new_signal(tests::connection(), &message, "/test", "test.Test", "Test") >= 0,
                 "a message can be made");
  const std::string bytes = tests::textOf(data, size);
  tests::Writer(message, bytes).write();
  // What was refused in the middle of a container leaves nothing that could come over a bus.
  if (sd_bus_message_seal(message, 1, 0) >= 0) {
    tests::readAll(platform::linux::BusMessage(message));
  }
  sd_bus_message_unref(message);
  return 0;
}
