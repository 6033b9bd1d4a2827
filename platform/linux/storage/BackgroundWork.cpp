#include "platform/linux/storage/BackgroundWork.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace roomlattice::platform::linux {

struct BackgroundWork::State {
  Work work;
  std::chrono::milliseconds pause;

  std::mutex mutex;
  std::condition_variable changed;
  bool started = false;
  bool requested = false;
  bool running = false;
  bool retrying = false;
  bool abandoned = false;
};

BackgroundWork::BackgroundWork(Work work, std::chrono::milliseconds pause) : state_(std::make_shared<State>()) {
  state_->work = std::move(work);
  state_->pause = pause;
}

BackgroundWork::~BackgroundWork() {
  const std::scoped_lock lock(state_->mutex);
  state_->abandoned = true;
  state_->changed.notify_all();
}

void BackgroundWork::request() {
  std::unique_lock lock(state_->mutex);
  state_->requested = true;
  state_->changed.notify_all();
  const bool hasThread = std::exchange(state_->started, true);
  lock.unlock();
  if (!hasThread) {
    startThread();
  }
}

bool BackgroundWork::waitUntilDone(std::chrono::milliseconds limit) const {
  std::unique_lock lock(state_->mutex);
  return state_->changed.wait_for(lock, limit, [this] { return !state_->requested && !state_->running; });
}

void BackgroundWork::startThread() {
  try {
    std::thread([state = state_] { run(*state); }).detach();
  } catch (const std::system_error&) {
    std::unique_lock lock(state_->mutex);
    // The next request may find one.
    state_->started = false;
    state_->requested = false;
    lock.unlock();
    state_->work();
  }
}

void BackgroundWork::run(State& state) {
  std::unique_lock lock(state.mutex);
  while (!state.abandoned) {
    const auto wanted = [&state] { return state.requested || state.abandoned; };
    if (state.retrying) {
      state.changed.wait_for(lock, state.pause, wanted);
    } else {
      state.changed.wait(lock, wanted);
    }
    if (state.abandoned) {
      break;
    }
    state.requested = false;
    state.running = true;
    lock.unlock();
    const Outcome outcome = state.work();
    lock.lock();
    state.running = false;
    state.retrying = outcome == Outcome::TryAgainLater;
    state.changed.notify_all();
  }
}

}  // namespace roomlattice::platform::linux
