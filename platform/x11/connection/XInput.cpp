#include "platform/x11/connection/XInput.h"

#include <array>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

bool makesGestures(const xcb_input_xi_device_info_t& device) {
  for (auto classes = xcb_input_xi_device_info_classes_iterator(&device); classes.rem != 0;
       xcb_input_device_class_next(&classes)) {
    if (classes.data->type == XCB_INPUT_DEVICE_CLASS_TYPE_GESTURE) {
      return true;
    }
  }
  return false;
}

}  // namespace

XInput::XInput(X11Connection& connection) : connection_(connection) {
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection.raw(), &xcb_input_id);
  if (extension == nullptr || extension->present == 0) {
    return;
  }
  opcode_ = extension->major_opcode;
  const auto cookie = xcb_input_xi_query_version(connection.raw(), 2, 4);
  const auto version = replyTo(connection.raw(), cookie, xcb_input_xi_query_version_reply);
  if (version != nullptr && version->major_version == 2) {
    minorVersion_ = version->minor_version;
  }
}

void XInput::select(xcb_input_device_id_t device, const std::vector<unsigned>& types) {
  constexpr unsigned bitsPerWord = 32;
  struct {
    xcb_input_event_mask_t header{};
    std::array<std::uint32_t, 2> words{};
  } mask;
  mask.header.deviceid = device;
  mask.header.mask_len = static_cast<std::uint16_t>(mask.words.size());
  for (const unsigned type : types) {
    mask.words.at(type / bitsPerWord) |= 1U << (type % bitsPerWord);
  }
  xcb_input_xi_select_events(connection_.raw(), connection_.root(), 1, &mask.header);
  connection_.flush();
}

Registration XInput::observe(EventHandler handler) {
  return connection_.observe<xcb_ge_generic_event_t>(
      [opcode = opcode_, handler = std::move(handler)](const xcb_ge_generic_event_t& event) {
        if (event.extension == opcode) {
          handler(event);
        }
      });
}

std::vector<xcb_input_device_id_t> XInput::gestureDevices() {
  std::vector<xcb_input_device_id_t> devices;
  const auto cookie = xcb_input_xi_query_device(connection_.raw(), XCB_INPUT_DEVICE_ALL);
  const auto reply = replyTo(connection_.raw(), cookie, xcb_input_xi_query_device_reply);
  if (reply == nullptr) {
    return devices;
  }
  for (auto infos = xcb_input_xi_query_device_infos_iterator(reply.get()); infos.rem != 0;
       xcb_input_xi_device_info_next(&infos)) {
    // A master repeats what its slaves do; listening to both would count each swipe twice.
    if (infos.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_POINTER && makesGestures(*infos.data)) {
      devices.push_back(infos.data->deviceid);
    }
  }
  return devices;
}

}  // namespace roomlattice::platform::x11
