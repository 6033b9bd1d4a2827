#include "platform/x11/desktops/KWinDesktopSource.h"

#include "platform/x11/desktops/StableHash.h"

#include <algorithm>
#include <thread>
#include <tuple>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

using namespace std::chrono_literals;
using linux::BusCall;
using linux::BusMessage;

constexpr std::chrono::milliseconds answerLimit = 2s;
// A window manager that replaces another one, or itself, is on the bus again within less.
constexpr std::chrono::milliseconds patience = 3s;

constexpr const char* service = "org.kde.KWin";
constexpr const char* path = "/VirtualDesktopManager";
constexpr const char* interface = "org.kde.KWin.VirtualDesktopManager";

/// Position, identifier and name.
using DesktopEntry = std::tuple<std::uint32_t, std::string, std::string>;

BusCall propertiesMethod(const std::string& method) {
  return {.path = path,
          .interface = "org.freedesktop.DBus.Properties",
          .method = method,
          .arguments = {interface},
          .activation = BusCall::Activation::Never};
}

BusCall setCurrent(const std::string& identifier) {
  BusCall call = propertiesMethod("Set");
  call.arguments.emplace_back("current");
  call.variant = identifier;
  return call;
}

BusCall setName(const std::string& identifier, const std::string& name) {
  return {.path = path,
          .interface = interface,
          .method = "setDesktopName",
          .arguments = {identifier, name},
          .activation = BusCall::Activation::Never};
}

/// The desktops in their order, none of them in front.
DesktopList listOf(std::vector<DesktopEntry> entries) {
  std::erase_if(entries, [](const DesktopEntry& entry) { return std::get<1>(entry).empty(); });
  entries.resize(std::min(entries.size(), maximumDesktops));
  const auto position = [](const DesktopEntry& entry) { return std::get<0>(entry); };
  std::ranges::stable_sort(entries, {}, position);
  DesktopList list;
  for (auto& [place, identifier, name] : entries) {
    const SpaceID id = stableHash(identifier);
    list.desktops.push_back({id, std::move(identifier)});
    list.names.push_back(std::move(name));
  }
  return list;
}

std::optional<std::size_t> placeOf(const std::vector<Desktop>& desktops, const std::string& identifier) {
  const auto found = std::ranges::find(desktops, identifier, &Desktop::uuid);
  return found == desktops.end() ? std::nullopt
                                 : std::optional(static_cast<std::size_t>(std::distance(desktops.begin(), found)));
}

/// Nothing when the answer is an error or tells of no desktops.
std::optional<DesktopList> parseAnswer(const BusMessage& answer) {
  auto entries = answer.isError() ? std::nullopt : answer.property<std::vector<DesktopEntry>>("desktops");
  if (!entries) {
    return std::nullopt;
  }
  DesktopList list = listOf(std::move(*entries));
  list.current = placeOf(list.desktops, answer.property<std::string>("current").value_or(""));
  return list.desktops.empty() ? std::nullopt : std::optional(std::move(list));
}

}  // namespace

KWinDesktopSource::KWinDesktopSource(X11Connection& connection, linux::MessageBus& bus, std::function<void()> changed)
    : bus_(bus),
      changed_(std::move(changed)),
      ewmh_(connection, DesktopIdentity::Position,
            [this] {
              if (state_ == State::Unheard) {
                changed_();
              }
            }),
      patience_([this] { giveUpWaiting(); }),
      service_(bus, service, [this](bool hasOwner) { ownerChanged(hasOwner); }) {
  patience_.start(patience);
  for (const char* signal :
       {"desktopCreated", "desktopRemoved", "desktopDataChanged", "desktopMoved", "countChanged"}) {
    signals_.push_back(service_.observeSignal({.path = path, .interface = interface, .name = signal},
                                              [this](const BusMessage&) { request(); }));
  }
  signals_.push_back(service_.observeSignal(
      {.path = path, .interface = interface, .name = "currentChanged"},
      [this](const BusMessage& message) { currentChanged(message.argument<std::string>(0).value_or("")); }));
  loss_ = bus.observeLoss([this] { loseTouch(); });
  request();
}

const DesktopList* KWinDesktopSource::known() {
  switch (state_) {
    case State::Heard:
      return &list_;
    case State::Unheard:
      return ewmh_.known();
    case State::Waiting:
      break;
  }
  return nullptr;
}

void KWinDesktopSource::activate(std::size_t index) {
  if (state_ == State::Heard && bus_.isConnected() && index < list_.desktops.size()) {
    service_.send(setCurrent(list_.desktops[index].uuid));
  } else {
    ewmh_.activate(index);
  }
}

void KWinDesktopSource::rename(std::size_t index, const std::string& name) {
  if (state_ == State::Heard && bus_.isConnected() && index < list_.desktops.size()) {
    service_.send(setName(list_.desktops[index].uuid, name));
  } else {
    ewmh_.rename(index, name);
  }
}

void KWinDesktopSource::waitForAnswer(std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  const auto left = [end] {
    return std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
  };
  while (state_ == State::Waiting && left() > 0ms) {
    if (const auto answer = service_.callAndWait(propertiesMethod("GetAll"), left())) {
      answered(*answer);
    }
    if (!bus_.isConnected()) {
      break;
    }
    if (state_ == State::Waiting) {
      // It manages windows already and is about to come to the bus.
      std::this_thread::sleep_for(10ms);
    }
  }
  giveUpWaiting();
}

void KWinDesktopSource::request() {
  if (requesting_) {
    // The answer under way may be older than what this request is about.
    requestAgain_ = true;
    return;
  }
  pendingCall_ = service_.call(propertiesMethod("GetAll"), answerLimit, [this](const BusMessage& answer) {
    requesting_ = false;
    // What KWin was too busy to answer, it may never have a reason to tell again.
    if (std::exchange(requestAgain_, false) || answer.isNoReply()) {
      request();
    }
    answered(answer);
  });
  requesting_ = static_cast<bool>(pendingCall_);
}

void KWinDesktopSource::answered(const BusMessage& answer) {
  if (std::optional<DesktopList> list = parseAnswer(answer)) {
    list_ = std::move(*list);
    state_ = State::Heard;
    patience_.stop();
    changed_();
  }
}

void KWinDesktopSource::currentChanged(const std::string& identifier) {
  const std::optional<std::size_t> place = placeOf(list_.desktops, identifier);
  if (state_ != State::Heard || !place) {
    request();
    return;
  }
  list_.current = place;
  changed_();
}

void KWinDesktopSource::ownerChanged(bool hasOwner) {
  if (hasOwner) {
    request();
  } else if (state_ == State::Heard) {
    state_ = State::Waiting;
    patience_.start(patience);
  }
}

void KWinDesktopSource::loseTouch() {
  pendingCall_.cancel();
  requesting_ = false;
  state_ = State::Unheard;
  patience_.stop();
  changed_();
}

void KWinDesktopSource::giveUpWaiting() {
  if (state_ == State::Waiting) {
    state_ = State::Unheard;
    patience_.stop();
    changed_();
  }
}

}  // namespace roomlattice::platform::x11
