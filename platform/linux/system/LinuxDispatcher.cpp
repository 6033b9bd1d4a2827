#include "platform/linux/system/LinuxDispatcher.h"

#include "platform/linux/system/RestingBeat.h"
#include "support/TaskQueue.h"

#include <QBasicTimer>
#include <QObject>
#include <QPointer>
#include <QThread>
#include <QTimerEvent>
#include <algorithm>
#include <mutex>
#include <optional>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

Duration now() {
  return std::chrono::steady_clock::now().time_since_epoch();
}

}  // namespace

class LinuxDispatcher::MainQueue final : public QObject, public std::enable_shared_from_this<MainQueue> {
 public:
  std::uint64_t post(Duration delay, Task task) {
    const std::scoped_lock lock(mutex_);
    // Later than the turn that runs now, so that a task which posts itself leaves the turn an end.
    const Duration due = std::max(now() + std::max(delay, Duration::zero()), turn_ + Duration(1));
    return add(due, std::move(task));
  }

  Registration repeat(Duration first, Duration period, Task task) {
    auto repetition = std::make_shared<Repetition>(std::max(period, Duration(1)), std::move(task));
    const std::scoped_lock lock(mutex_);
    repeatAt(now() + std::max(first, Duration::zero()), repetition);
    return Registration([weak = weak_from_this(), weakRepetition = std::weak_ptr(repetition)] {
      const auto queue = weak.lock();
      const auto ending = weakRepetition.lock();
      if (queue != nullptr && ending != nullptr) {
        queue->remove(ending->token);
      }
    });
  }

  Registration registrationOf(std::uint64_t token) {
    return Registration([weak = weak_from_this(), token] {
      if (const auto queue = weak.lock()) {
        queue->remove(token);
      }
    });
  }

 protected:
  void timerEvent(QTimerEvent* event) override {
    if (event->timerId() == timer_.timerId()) {
      runDueTasks();
    }
  }

 private:
  struct Repetition {
    Repetition(Duration givenPeriod, Task givenTask) : period(givenPeriod), task(std::move(givenTask)) {}

    Duration period;
    Task task;
    std::uint64_t token = 0;
  };

  std::uint64_t add(Duration due, Task task) {
    const std::uint64_t token = tasks_.post(due, std::move(task));
    if (QThread::currentThread() == thread()) {
      arm();
    } else {
      QMetaObject::invokeMethod(
          this, [this] { arm(); }, Qt::QueuedConnection);
    }
    return token;
  }

  void remove(std::uint64_t token) {
    const std::scoped_lock lock(mutex_);
    tasks_.remove(token);
  }

  void repeatAt(Duration due, const std::shared_ptr<Repetition>& repetition) {
    repetition->token = add(due, [this, due, repetition] {
      {
        const std::scoped_lock lock(mutex_);
        const auto missed = std::max<Duration::rep>((now() - due) / repetition->period, 0);
        repeatAt(due + (missed + 1) * repetition->period, repetition);
      }
      repetition->task();
    });
  }

  void arm() {
    const std::scoped_lock lock(mutex_);
    const std::optional<Duration> due = tasks_.nextDue();
    // To set the timer costs more than all that most turns have to do. One whose task is gone goes off in vain.
    if (due && due != armedFor_) {
      const auto delay = std::chrono::ceil<std::chrono::milliseconds>(*due - now());
      timer_.start(static_cast<int>(std::max(delay, std::chrono::milliseconds(0)).count()), Qt::PreciseTimer, this);
      armedFor_ = due;
    }
  }

  void runDueTasks() {
    const auto alive = shared_from_this();
    const Duration started = now();
    timer_.stop();
    armedFor_.reset();
    while (std::optional<Task> task = takeDue(started)) {
      (*task)();
    }
    arm();
  }

  std::optional<Task> takeDue(Duration started) {
    const std::scoped_lock lock(mutex_);
    turn_ = std::max(turn_, started);
    std::optional<Task> task = tasks_.takeDue(started);
    if (task) {
      // Before the task runs: it may open an event loop of its own, which must go on serving the queue.
      arm();
    }
    return task;
  }

  // Recursive: ending a task may end what it owns, and that may come back here.
  std::recursive_mutex mutex_;
  TaskQueue tasks_;
  Duration turn_ = Duration::zero();
  QBasicTimer timer_;
  // When the task is due for which the timer runs; nothing while it does not.
  std::optional<Duration> armedFor_;
};

LinuxDispatcher::LinuxDispatcher() : mainQueue_(std::make_shared<MainQueue>()) {
  // One after the other.
  worker_.setMaxThreadCount(1);
}

LinuxDispatcher::~LinuxDispatcher() {
  worker_.clear();
  // Before the main queue goes: what runs may still call async.
  worker_.waitForDone();
}

void LinuxDispatcher::async(Task task) {
  mainQueue_->post(Duration::zero(), std::move(task));
}

void LinuxDispatcher::asyncAfter(Duration delay, Task task) {
  mainQueue_->post(delay, std::move(task));
}

Registration LinuxDispatcher::schedule(Duration delay, Task task) {
  return mainQueue_->registrationOf(mainQueue_->post(delay, std::move(task)));
}

Registration LinuxDispatcher::repeat(Duration first, Duration period, Task task) {
  return mainQueue_->repeat(first, period, std::move(task));
}

Registration LinuxDispatcher::repeatWhileActive(Duration first, Duration period, Task task) {
  const QPointer<RestingBeat> beat(new RestingBeat(first, period, std::move(task), &beats_));
  return Registration([beat] { delete beat; });
}

void LinuxDispatcher::background(Task task) {
  worker_.start(std::move(task));
}

}  // namespace roomlattice::platform::linux
