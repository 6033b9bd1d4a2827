#include "platform/linux/storage/FileWatch.h"

#include <QMetaObject>
#include <utility>

namespace roomlattice::platform::linux {

FileWatch::FileWatch(std::filesystem::path path, std::function<void()> changed, Background background)
    : path_(std::move(path)), changed_(std::move(changed)), background_(std::move(background)) {
  access_->watch = this;
  renew();
}

FileWatch::~FileWatch() {
  {
    const std::scoped_lock lock(access_->mutex);
    access_->watch = nullptr;
  }
  drop();
}

void FileWatch::readEvents() {
  const InotifyWatches::News news = watches_->news();
  if (news.isRebuilt) {
    renew();
  }
  if (news.isChanged) {
    changed_();
  }
}

/// Until the new watches are there, the old ones, if any, tell what they can.
void FileWatch::renew() {
  background_([path = path_, access = access_] {
    auto made = std::make_shared<InotifyWatches>(path);
    const std::scoped_lock lock(access->mutex);
    if (FileWatch* watch = access->watch) {
      const auto hand = [watch, made = std::move(made)] { watch->take(made); };
      QMetaObject::invokeMethod(&watch->receiver_, hand, Qt::QueuedConnection);
    }
  });
}

/// The kernel takes its time to end watches: on a busy machine, seconds.
void FileWatch::drop() {
  notifier_.reset();
  if (watches_ != nullptr) {
    background_([watches = std::move(watches_)]() mutable { watches.reset(); });
  }
}

void FileWatch::take(std::shared_ptr<InotifyWatches> watches) {
  drop();
  watches_ = std::move(watches);
  if (watches_->descriptor()) {
    notifier_.emplace(watches_->descriptor().get(), QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this] { readEvents(); });
  }
  // What happened before the new watches were made may have been told by nobody.
  changed_();
}

}  // namespace roomlattice::platform::linux
