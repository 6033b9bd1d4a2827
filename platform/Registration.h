#pragma once

#include <functional>
#include <utility>

namespace roomlattice::platform {

/// Something that was installed and ends with this value: an observer, a monitor, a timer, a scheduled task, an
/// activity. Move-only; when it may end, and what comes then, stands with Platform.
class [[nodiscard]] Registration {
 public:
  Registration() = default;
  explicit Registration(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
  Registration(Registration&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
  Registration& operator=(Registration&& other) noexcept {
    if (this != &other) {
      cancel();
      cancel_ = std::exchange(other.cancel_, nullptr);
    }
    return *this;
  }
  Registration(const Registration&) = delete;
  Registration& operator=(const Registration&) = delete;
  ~Registration() { cancel(); }

  /// True while it stands for something installed, whether or not a scheduled task has run already.
  explicit operator bool() const { return static_cast<bool>(cancel_); }

  /// Ends what was installed. Does nothing on an empty registration.
  void cancel() {
    if (auto end = std::exchange(cancel_, nullptr)) {
      end();
    }
  }

 private:
  std::function<void()> cancel_;
};

}  // namespace roomlattice::platform
