#include "platform/linux/storage/SettingsWatch.h"

#include <chrono>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

// Editors write a file in several steps.
constexpr std::chrono::milliseconds restAfterChange{60};

}  // namespace

SettingsWatch::SettingsWatch(LinuxDefaults& defaults, std::filesystem::path path, std::function<void()> changed)
    : defaults_(defaults), changed_(std::move(changed)) {
  lookSoon_.setSingleShot(true);
  lookSoon_.setInterval(restAfterChange);
  lookSoon_.callOnTimeout([this] { look(); });
  // What the file holds now is no news: to be asked before the thread is given anything to do, after which it is busy.
  defaults_.newsFromOutside();
  watch_.emplace(
      std::move(path), [this] { fileChanged(); },
      [&defaults](std::function<void()> task) { defaults.runByWriter(std::move(task)); });
  fileChanged();
}

void SettingsWatch::fileChanged() {
  using Looking = SettingsMemory::Looking;
  defaults_.setLooking(watch_->isReliable() ? Looking::WhenTold : Looking::Soon);
  lookSoon_.start();
}

void SettingsWatch::look() {
  switch (defaults_.newsFromOutside()) {
    case SettingsMemory::News::None:
      break;
    case SettingsMemory::News::Changed:
      changed_();
      break;
    case SettingsMemory::News::NotKnownYet:
      lookSoon_.start();
      break;
  }
}

}  // namespace roomlattice::platform::linux
