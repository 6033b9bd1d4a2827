#import "platform/macos/MacDispatcher.h"

#import <Foundation/Foundation.h>
#import <dispatch/dispatch.h>

#include "support/TaskQueue.h"

#include <time.h>

#include <algorithm>
#include <mutex>

namespace roomlattice::platform::macos {
namespace {

using Instant = TaskQueue::Instant;

/// The clock of Dispatch's own delays, which stands still while the machine sleeps. The standard library's does not.
Instant now() {
  return Instant(static_cast<Instant::rep>(clock_gettime_nsec_np(CLOCK_UPTIME_RAW)));
}

dispatch_time_t after(Duration delay) {
  return dispatch_time(DISPATCH_TIME_NOW, std::max(delay, Duration::zero()).count());
}

/// A repeating timer source on the main queue. Blocks that it has under way keep it.
class TimerSource {
 public:
  TimerSource(Duration first, Duration period)
      : source_(dispatch_source_create(DISPATCH_SOURCE_TYPE_TIMER, 0, 0, dispatch_get_main_queue())) {
    const auto interval = static_cast<std::uint64_t>(std::max(period, Duration(1)).count());
    constexpr std::uint64_t leeway = 0;
    dispatch_source_set_timer(source_, after(first), interval, leeway);
  }
  TimerSource(const TimerSource&) = delete;
  TimerSource& operator=(const TimerSource&) = delete;
  ~TimerSource() { dispatch_release(source_); }

  void start(Dispatcher::Task task) {
    const auto shared = std::make_shared<Dispatcher::Task>(std::move(task));
    dispatch_source_set_event_handler(source_, ^{
      @autoreleasepool {
        const std::shared_ptr<Dispatcher::Task> running = shared;
        (*running)();
      }
    });
    dispatch_resume(source_);
  }

  void cancel() { dispatch_source_cancel(source_); }

 private:
  dispatch_source_t source_;
};

}  // namespace

class MacDispatcher::MainQueue : public std::enable_shared_from_this<MainQueue> {
 public:
  std::uint64_t post(Instant due, Task task) {
    const std::scoped_lock lock(mutex_);
    return tasks_.post(due, std::move(task));
  }

  void remove(std::uint64_t token) {
    const std::scoped_lock lock(mutex_);
    tasks_.remove(token);
  }

  /// The wake-up of a task that is due at `due`: the system's clock may be a little behind ours.
  void wake(Instant due) {
    if (const std::optional<Task> task = take(std::max(now(), due))) {
      (*task)();
      wakeForNext();
    }
  }

 private:
  /// The wake-up that was meant for the next task may be late. One of these is enough: it sees to the one after it.
  void wakeForNext() {
    if (isWakingForNext_ || !isDue(now())) {
      return;
    }
    isWakingForNext_ = true;
    const std::weak_ptr weak = weak_from_this();
    dispatch_async(dispatch_get_main_queue(), ^{
      @autoreleasepool {
        if (const auto queue = weak.lock()) {
          queue->isWakingForNext_ = false;
          queue->wake(now());
        }
      }
    });
  }

  bool isDue(Instant at) {
    const std::scoped_lock lock(mutex_);
    const std::optional<Instant> next = tasks_.nextDue();
    return next && *next <= at;
  }

  std::optional<Task> take(Instant at) {
    const std::scoped_lock lock(mutex_);
    return tasks_.takeDue(at);
  }

  // Recursive: what a removed task owned may come back here when it ends.
  std::recursive_mutex mutex_;
  TaskQueue tasks_;
  // Of the main thread alone.
  bool isWakingForNext_ = false;
};

MacDispatcher::MacDispatcher() : queue_(std::make_shared<MainQueue>()) {}

MacDispatcher::~MacDispatcher() = default;

void MacDispatcher::async(Task task) {
  post(Duration::zero(), std::move(task));
}

void MacDispatcher::asyncAfter(Duration delay, Task task) {
  post(delay, std::move(task));
}

Registration MacDispatcher::schedule(Duration delay, Task task) {
  const std::uint64_t token = post(delay, std::move(task));
  return Registration([weak = std::weak_ptr(queue_), token] {
    if (const auto queue = weak.lock()) {
      queue->remove(token);
    }
  });
}

std::uint64_t MacDispatcher::post(Duration delay, Task task) {
  const Instant due = now() + std::max(delay, Duration::zero());
  const std::uint64_t token = queue_->post(due, std::move(task));
  const std::weak_ptr weak = queue_;
  dispatch_after(after(delay), dispatch_get_main_queue(), ^{
    @autoreleasepool {
      if (const auto queue = weak.lock()) {
        queue->wake(due);
      }
    }
  });
  return token;
}

Registration MacDispatcher::repeat(Duration first, Duration period, Task task) {
  const auto timer = std::make_shared<TimerSource>(first, period);
  timer->start(std::move(task));
  return Registration([timer] { timer->cancel(); });
}

void MacDispatcher::background(Task task) {
  const Task running = std::move(task);
  dispatch_async(dispatch_get_global_queue(QOS_CLASS_USER_INITIATED, 0), ^{
    @autoreleasepool {
      running();
    }
  });
}

}  // namespace roomlattice::platform::macos
