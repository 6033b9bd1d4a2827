#include "platform/linux/storage/LinuxDefaults.h"

#include "platform/linux/storage/UserFolders.h"

#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace roomlattice::platform::linux {
namespace {

// A disk that was full or a lock that was held is looked at again after this time.
constexpr std::chrono::seconds pauseAfterFailure{5};

}  // namespace

struct LinuxDefaults::Errands {
  std::mutex mutex;
  std::vector<std::function<void()>> waiting;

  void run() {
    std::unique_lock lock(mutex);
    const auto tasks = std::exchange(waiting, {});
    lock.unlock();
    for (const auto& task : tasks) {
      task();
    }
  }
};

LinuxDefaults::LinuxDefaults(std::optional<std::filesystem::path> path, Report report,
                             std::chrono::milliseconds settling)
    : memory_(std::make_shared<SettingsMemory>(std::move(path), std::move(report), settling)),
      errands_(std::make_shared<Errands>()),
      writer_(
          [memory = memory_, errands = errands_] {
            errands->run();
            using Outcome = BackgroundWork::Outcome;
            return memory->write() == SettingsMemory::Write::Failed ? Outcome::TryAgainLater : Outcome::Done;
          },
          pauseAfterFailure) {}

LinuxDefaults::~LinuxDefaults() {
  finishWriting();
  memory_->silence();
}

std::optional<std::filesystem::path> LinuxDefaults::standardPath() {
  const auto folder = configurationFolder();
  return folder ? std::optional(*folder / "settings.json") : std::nullopt;
}

std::optional<Value> LinuxDefaults::object(const std::string& key) const {
  std::optional<Value> value = memory_->object(key);
  lookIfWanted();
  return value;
}

void LinuxDefaults::set(const std::string& key, const Value& value) {
  if (memory_->set(key, value) == SettingsMemory::Change::ToBeWritten) {
    writer_.request();
  }
}

void LinuxDefaults::setLooking(SettingsMemory::Looking looking) {
  memory_->setLooking(looking);
  lookIfWanted();
}

void LinuxDefaults::lookIfWanted() const {
  if (memory_->isToBeLookedAt()) {
    writer_.request();
  }
}

void LinuxDefaults::runByWriter(std::function<void()> task) {
  {
    const std::scoped_lock lock(errands_->mutex);
    errands_->waiting.push_back(std::move(task));
  }
  writer_.request();
}

bool LinuxDefaults::waitUntilWritten(std::chrono::milliseconds limit) const {
  return writer_.waitUntilDone(limit) && memory_->isWritten();
}

void LinuxDefaults::finishWriting() {
  if (!memory_->isWritten()) {
    writer_.request();
    writer_.waitUntilDone(endLimit);
  }
}

}  // namespace roomlattice::platform::linux
