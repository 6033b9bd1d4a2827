#include "platform/x11/desktops/X11Desktops.h"

#include "platform/x11/desktops/EwmhDesktopSource.h"
#include "platform/x11/desktops/KWinDesktopSource.h"

#include <algorithm>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

// Window managers switch within milliseconds. What has not come by then was refused, or the user went elsewhere.
constexpr std::chrono::seconds requestLifetime{1};

// What the start of the program may take longer for the sake of the desktops' identity.
constexpr std::chrono::milliseconds answerLimitAtStart{500};

}  // namespace

X11Desktops::X11Desktops(X11Connection& connection, linux::MessageBus& sessionBus, WindowManagerWatch& windowManager,
                         NotificationCenter& workspaceCenter)
    : connection_(connection),
      sessionBus_(sessionBus),
      windowManager_(windowManager),
      workspaceCenter_(workspaceCenter) {
  windowManagerChanges_ = windowManager.observe([this] { windowManagerChanged(); });
  selectSource(Moment::Start);
  if (const DesktopList* read = source_ == nullptr ? nullptr : source_->known()) {
    list_ = *read;
  }
}

void X11Desktops::windowManagerChanged() {
  // Those that the new one gives are not renames of what the old one had.
  list_.names.clear();
  nameListeners_.notify();
  selectSource(Moment::Later);
  sourceChanged();
}

std::optional<std::size_t> X11Desktops::indexOf(SpaceID desktop) const {
  const auto found = std::ranges::find(list_.desktops, desktop, &Desktop::id);
  return found == list_.desktops.end()
             ? std::nullopt
             : std::optional(static_cast<std::size_t>(std::distance(list_.desktops.begin(), found)));
}

void X11Desktops::activate(std::size_t index) {
  if (source_ == nullptr || index >= list_.desktops.size()) {
    return;
  }
  requests_.push_back(index);
  lastRequest_ = Clock::now();
  source_->activate(index);
}

void X11Desktops::rename(std::size_t index, const std::string& name) {
  if (source_ != nullptr && index < list_.desktops.size()) {
    source_->rename(index, name);
  }
}

void X11Desktops::step(Direction direction) {
  const std::optional<std::size_t> from = destination();
  if (!from || (direction == Direction::Left && *from == 0)) {
    return;
  }
  activate(direction == Direction::Right ? *from + 1 : *from - 1);
}

std::optional<std::size_t> X11Desktops::destination() {
  if (Clock::now() - lastRequest_ > requestLifetime) {
    requests_.clear();
  }
  return requests_.empty() ? list_.current : std::optional(requests_.back());
}

void X11Desktops::selectSource(Moment moment) {
  source_.reset();
  if (!windowManager_.current()) {
    return;
  }
  const WindowManagerTraits traits = windowManager_.traits();
  const auto changed = [this] { sourceChanged(); };
  if (!traits.tellsDesktopsOnTheBus) {
    source_ = std::make_unique<EwmhDesktopSource>(connection_, traits.desktopIdentity, changed);
    return;
  }
  auto source = std::make_unique<KWinDesktopSource>(connection_, sessionBus_, changed);
  if (moment == Moment::Start) {
    source->waitForAnswer(answerLimitAtStart);
  }
  source_ = std::move(source);
}

void X11Desktops::sourceChanged() {
  const DesktopList* read = source_ == nullptr ? nullptr : source_->known();
  if (read == nullptr) {
    return;
  }
  const bool listDiffers = read->desktops != list_.desktops;
  if (listDiffers) {
    requests_.clear();
  }
  const bool differs = listDiffers || read->current != list_.current;
  const bool namesDiffer = read->names != list_.names;
  list_ = *read;
  settleRequests();
  if (differs) {
    workspaceCenter_.post(notification::activeSpaceDidChange);
    listeners_.notify();
  }
  if (namesDiffer) {
    nameListeners_.notify();
  }
}

void X11Desktops::settleRequests() {
  // Several switches may have been passed at once; those before the one that was reached are through, too.
  const auto reached = std::ranges::find_if(requests_, [this](std::size_t index) { return index == list_.current; });
  if (reached != requests_.end()) {
    requests_.erase(requests_.begin(), reached + 1);
  }
}

}  // namespace roomlattice::platform::x11
