#include "platform/linux/tray/TrayWatch.h"

#include <fstream>
#include <string_view>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view hostNames = "org.kde.StatusNotifierHost";
constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";
constexpr const char* watcherInterface = "org.kde.StatusNotifierWatcher";
constexpr auto answerLimit = 2s;

std::string programOf(std::uint32_t process) {
  std::string name;
  std::ifstream file("/proc/" + std::to_string(process) + "/comm");
  std::getline(file, name);
  return name;
}

BusSignal watcherSignal(const char* name) {
  return {.path = watcherPath, .interface = watcherInterface, .name = name};
}

}  // namespace

TrayWatch::TrayWatch(MessageBus& bus)
    : bus_(bus),
      watcher_(bus, watcherName, [this](bool) { watcherChanged(); }),
      patience_([this] { become(State::Absent, {}); }) {
  hostCame_ =
      watcher_.observeSignal(watcherSignal("StatusNotifierHostRegistered"), [this](const BusMessage&) { ask(); });
  hostWent_ =
      watcher_.observeSignal(watcherSignal("StatusNotifierHostUnregistered"), [this](const BusMessage&) { ask(); });
  nameChanges_ = bus.observeSignal({.sender = busName,
                                    .path = busPath,
                                    .interface = busName,
                                    .name = "NameOwnerChanged",
                                    .firstArgumentWithin = "org.kde"},
                                   [this](const BusMessage& message) { nameChanged(message); });
  loss_ = bus.observeLoss([this] { become(State::Absent, {}); });
  ask();
  // Also where there is no bus.
  patience_.start(answerLimit);
}

Registration TrayWatch::observe(std::function<void()> handler) {
  return listeners_.add(std::move(handler));
}

void TrayWatch::registerItem(const std::string& name) {
  watcher_.send({.path = watcherPath,
                 .interface = watcherInterface,
                 .method = "RegisterStatusNotifierItem",
                 .arguments = {name},
                 .activation = BusCall::Activation::Never});
}

void TrayWatch::watcherChanged() {
  isNewWatcher_ = true;
  ask();
}

void TrayWatch::nameChanged(const BusMessage& message) {
  const std::string name = message.argument<std::string>(0).value_or("");
  if (message.sender() != busName || !name.starts_with(hostNames)) {
    return;
  }
  if (message.argument<std::string>(2).value_or("").empty()) {
    hosts_.erase(name);
  } else {
    hosts_.insert(name);
  }
  ask();
}

void TrayWatch::ask() {
  hostQuestion_.cancel();
  processQuestion_ = bus_.call({.service = busName,
                                .path = busPath,
                                .interface = busName,
                                .method = "GetConnectionUnixProcessID",
                                .arguments = {watcherName}},
                               answerLimit, [this](const BusMessage& answer) {
                                 const auto process = answer.argument<std::uint32_t>(0);
                                 if (answer.isError() || !process) {
                                   become(State::Absent, {});
                                   return;
                                 }
                                 asked_ = trayTraitsOf(programOf(*process));
                                 askForHost();
                               });
}

void TrayWatch::askForHost() {
  hostQuestion_ = watcher_.call({.path = watcherPath,
                                 .interface = "org.freedesktop.DBus.Properties",
                                 .method = "Get",
                                 .arguments = {watcherInterface, "IsStatusNotifierHostRegistered"},
                                 .activation = BusCall::Activation::Never},
                                answerLimit, [this](const BusMessage& answer) {
                                  // A host that has just taken its name may not have come to the watcher yet.
                                  const bool hasHost = answer.argument<bool>(0) == true || !hosts_.empty();
                                  const bool shown = !answer.isError() && hasHost;
                                  become(shown ? State::Present : State::Absent, asked_);
                                });
}

void TrayWatch::become(State state, TrayTraits traits) {
  patience_.stop();
  if (state == state_ && (state == State::Absent || !isNewWatcher_)) {
    return;
  }
  isNewWatcher_ = false;
  state_ = state;
  traits_ = traits;
  listeners_.notify();
}

}  // namespace roomlattice::platform::linux
