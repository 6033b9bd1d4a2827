#pragma once

#include "platform/Dispatcher.h"

#include <QObject>
#include <QThreadPool>
#include <memory>

namespace roomlattice::platform::linux {

/// The main queue on the Qt application's event loop, and one worker thread. Tasks that post tasks never keep events
/// from being handled. The Qt application must outlive it; it ends on the main thread, once the background task that
/// runs has ended, and without running what is still queued.
class LinuxDispatcher final : public Dispatcher {
 public:
  LinuxDispatcher();
  ~LinuxDispatcher() override;

  void async(Task task) override;
  void asyncAfter(Duration delay, Task task) override;
  Registration schedule(Duration delay, Task task) override;
  Registration repeat(Duration first, Duration period, Task task) override;
  /// On the main thread. The calls have no place in the order of the other tasks.
  Registration repeatWhileActive(Duration first, Duration period, Task task) override;
  void background(Task task) override;

 private:
  class MainQueue;

  std::shared_ptr<MainQueue> mainQueue_;
  QObject beats_;  // owns them
  QThreadPool worker_;
};

}  // namespace roomlattice::platform::linux
