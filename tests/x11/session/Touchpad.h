#pragma once

#include <cstdint>
#include <filesystem>

namespace roomlattice::tests {

/// A touchpad's driver without a touchpad: the gestures that it feeds to the X server are whatever the test says. It
/// speaks to Xorg's inputtest driver, which takes one connection in the server's life.
class Touchpad {
 public:
  /// `socket` is where the driver listens. Waits until it does.
  explicit Touchpad(const std::filesystem::path& socket);
  ~Touchpad();
  Touchpad(const Touchpad&) = delete;
  Touchpad& operator=(const Touchpad&) = delete;

  /// Fingers come down, move together, in the units of pointer motion to the right and downwards, and are lifted. Each
  /// returns when the server has taken note.
  void beginSwipe(int fingers);
  void moveSwipe(int fingers, double right, double down);
  void endSwipe(int fingers);

 private:
  void sendSwipe(std::uint16_t gesture, int fingers, double right, double down);
  void waitUntilTaken();
  void send(const void* data, std::size_t size) const;
  void receive(void* data, std::size_t size) const;

  int socket_;
};

}  // namespace roomlattice::tests
