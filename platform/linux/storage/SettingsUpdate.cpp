#include "platform/linux/storage/SettingsUpdate.h"

#include "platform/linux/storage/SettingsText.h"

#include <utility>
#include <variant>

namespace roomlattice::platform::linux {
namespace {

// Somebody who writes it without a pause has to end some time.
constexpr int maximumAttempts = 50;

}  // namespace

SettingsUpdate::Result SettingsUpdate::run(SettingsChanges changes) && {
  changes_ = std::move(changes);
  std::string reason;
  const FileDescriptor lock = file_.lock(reason);
  if (!lock) {
    return {.left = std::move(changes_), .trouble = reason, .mayWorkLater = true};
  }
  for (int attempt = 1; tryOnce() == Attempt::OnceMore; ++attempt) {
    if (attempt == maximumAttempts) {
      fail("it changes all the time");
      break;
    }
  }
  result_.file = file_.read();
  return std::move(result_);
}

SettingsUpdate::Attempt SettingsUpdate::tryOnce() {
  result_.left.clear();
  result_.trouble.reset();
  result_.mayWorkLater = false;
  if (!readAndSetAside()) {
    return Attempt::Over;
  }
  merge(before_);
  const bool unchanged = stamp_ && after_ == before_;
  if (unchanged || !text_) {
    return Attempt::Over;
  }
  std::string reason;
  switch (file_.write(*text_, stamp_, reason)) {
    case SettingsFile::WriteResult::Written:
      break;
    case SettingsFile::WriteResult::ChangedMeanwhile:
      return Attempt::OnceMore;
    case SettingsFile::WriteResult::Failed:
      fail(reason);
  }
  return Attempt::Over;
}

void SettingsUpdate::fail(std::optional<std::string> reason) {
  result_.left = changes_;
  result_.trouble = std::move(reason);
  result_.mayWorkLater = true;
}

/// Whether it can go on from there.
bool SettingsUpdate::readAndSetAside() {
  SettingsFile::ReadResult state = file_.readSettled(settling_);
  stamp_.reset();
  before_.clear();
  if (auto* contents = std::get_if<SettingsFile::Contents>(&state)) {
    before_ = std::move(contents->settings);
    stamp_ = contents->stamp;
  }
  if (const auto* damage = std::get_if<SettingsFile::Damaged>(&state)) {
    const std::optional<std::filesystem::path> aside = file_.setAside();
    if (!aside) {
      fail(damage->reason + ", and it cannot be renamed");
      return false;
    }
    result_.setAside = {*aside, damage->reason};
    before_ = lastKnown_;
  }
  if (std::holds_alternative<SettingsFile::Unreadable>(state)) {
    fail(std::nullopt);  // whoever reads reports that
    return false;
  }
  return true;
}

/// As much as can be read again: what cannot stays out, the rest need not wait for it.
void SettingsUpdate::merge(const Value::Dictionary& settings) {
  after_ = applied(changes_, settings);
  text_ = toSettingsText(after_);
  if (text_) {
    return;
  }
  after_ = settings;
  for (const auto& [key, change] : changes_) {
    Value::Dictionary with = applied({{key, change}}, after_);
    if (toSettingsText(with)) {
      after_ = std::move(with);
    } else {
      result_.left.emplace(key, change);
      result_.trouble = "the value of " + key + " has no form in JSON, or is too large or nested too deeply";
    }
  }
  text_ = toSettingsText(after_);
}

}  // namespace roomlattice::platform::linux
