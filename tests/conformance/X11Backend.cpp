#include "platform/NativePlatform.h"
#include "tests/conformance/Backend.h"
#include "tests/x11/session/X11Session.h"

#include <array>
#include <variant>

namespace roomlattice::tests {
namespace {

class X11Backend final : public Backend {
 public:
  X11Backend() {
    auto made = platform::makeNativePlatform(count_, arguments_.data());
    platform_ = std::move(std::get<std::unique_ptr<platform::Platform>>(made));
  }

  platform::Platform& platform() override { return *platform_; }
  bool runUntil(const std::function<bool()>& condition) override { return waitFor(condition); }
  void runFor(std::chrono::milliseconds duration) override {
    static_cast<void>(waitFor([] { return false; }, duration));
  }

 private:
  X11Session session_;
  std::string name_ = "roomlattice-test";
  std::array<char*, 2> arguments_{name_.data(), nullptr};
  int count_ = 1;
  std::unique_ptr<platform::Platform> platform_;
};

}  // namespace

std::unique_ptr<Backend> makeBackend() {
  return std::make_unique<X11Backend>();
}

std::string_view backendName() {
  return "x11";
}

}  // namespace roomlattice::tests
