#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace roomlattice::platform::linux {

/// Something that is done on a thread of its own, once for all requests that come before it begins: what is requested
/// while it is being done is done once more afterwards. Where no thread can be had, a request does it on the spot.
class BackgroundWork {
 public:
  /// How it went.
  enum class Outcome {
    Done,
    /// It is tried again after the pause, even without a request.
    TryAgainLater,
  };
  using Work = std::function<Outcome()>;

  /// What `work` uses must live as long as `work` itself, which may outlive this object.
  BackgroundWork(Work work, std::chrono::milliseconds pause);
  BackgroundWork(const BackgroundWork&) = delete;
  BackgroundWork& operator=(const BackgroundWork&) = delete;

  /// Waits for nothing: work that is under way goes on, until the process ends.
  ~BackgroundWork();

  /// Any thread.
  void request();

  /// Waits until all that was requested is done, whatever the outcome, but not beyond `limit`. Gives whether it is.
  bool waitUntilDone(std::chrono::milliseconds limit) const;

 private:
  struct State;

  static void run(State& state);
  void startThread();

  std::shared_ptr<State> state_;
};

}  // namespace roomlattice::platform::linux
