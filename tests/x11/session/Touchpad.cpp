#include "tests/x11/session/Touchpad.h"

#include "tests/linux/session/Wait.h"

#include <cstring>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xinput.h>
#include <xorg/xf86-input-inputtest-protocol.h>

namespace roomlattice::tests {
namespace {

template <class Message>
Message message(xf86ITEventType type) {
  Message made{};
  made.header.length = sizeof(made);
  made.header.type = type;
  return made;
}

bool connectTo(int socket, const std::filesystem::path& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string name = path.string();
  if (name.size() >= sizeof(address.sun_path)) {
    throw std::runtime_error("the path of the touchpad's socket is too long");
  }
  std::memcpy(address.sun_path, name.c_str(), name.size() + 1);
  return connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
}

}  // namespace

Touchpad::Touchpad(const std::filesystem::path& socket) : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  if (!waitFor([&] { return connectTo(socket_, socket); })) {
    close(socket_);
    throw std::runtime_error("the touchpad's driver does not listen");
  }
  auto version = message<xf86ITEventClientVersion>(XF86IT_EVENT_CLIENT_VERSION);
  version.major = XF86IT_PROTOCOL_VERSION_MAJOR;
  version.minor = XF86IT_PROTOCOL_VERSION_MINOR;
  send(&version, sizeof(version));
  xf86ITResponseServerVersion answer{};
  receive(&answer, sizeof(answer));
}

Touchpad::~Touchpad() {
  close(socket_);
}

void Touchpad::beginSwipe(int fingers) {
  sendSwipe(XCB_INPUT_GESTURE_SWIPE_BEGIN, fingers, 0.0, 0.0);
}

void Touchpad::moveSwipe(int fingers, double right, double down) {
  sendSwipe(XCB_INPUT_GESTURE_SWIPE_UPDATE, fingers, right, down);
}

void Touchpad::endSwipe(int fingers) {
  sendSwipe(XCB_INPUT_GESTURE_SWIPE_END, fingers, 0.0, 0.0);
}

void Touchpad::sendSwipe(std::uint16_t gesture, int fingers, double right, double down) {
  auto event = message<xf86ITEventGestureSwipe>(XF86IT_EVENT_GESTURE_SWIPE);
  event.gesture_type = gesture;
  event.num_touches = static_cast<std::uint16_t>(fingers);
  event.delta_x = right;
  event.delta_y = down;
  event.delta_unaccel_x = right;
  event.delta_unaccel_y = down;
  send(&event, sizeof(event));
  waitUntilTaken();
}

void Touchpad::waitUntilTaken() {
  const auto request = message<xf86ITEventWaitForSync>(XF86IT_EVENT_WAIT_FOR_SYNC);
  send(&request, sizeof(request));
  xf86ITResponseSyncFinished answer{};
  receive(&answer, sizeof(answer));
}

void Touchpad::send(const void* data, std::size_t size) const {
  if (write(socket_, data, size) != static_cast<ssize_t>(size)) {
    throw std::runtime_error("the touchpad's driver does not listen any more");
  }
}

void Touchpad::receive(void* data, std::size_t size) const {
  if (recv(socket_, data, size, MSG_WAITALL) != static_cast<ssize_t>(size)) {
    throw std::runtime_error("the touchpad's driver does not answer");
  }
}

}  // namespace roomlattice::tests
