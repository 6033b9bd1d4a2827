#pragma once

#include "platform/x11/X11Application.h"

#include <array>

namespace roomlattice::tests {

/// A connection to the session's X server, and the Qt application that serves it, for tests of parts that need no more.
class QtApplication {
 public:
  platform::x11::X11Connection& connection() { return *connection_; }
  platform::x11::X11Application& application() { return application_; }

 private:
  std::string name_ = "roomlattice-test";
  std::array<char*, 2> arguments_{name_.data(), nullptr};
  int count_ = 1;
  std::unique_ptr<platform::x11::X11Connection> connection_ = platform::x11::X11Connection::open();
  platform::x11::X11Application application_{*connection_, count_, arguments_.data()};
};

}  // namespace roomlattice::tests
