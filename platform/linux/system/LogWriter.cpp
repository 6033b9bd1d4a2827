#include "platform/linux/system/LogWriter.h"

#include "platform/linux/system/LogLine.h"

#include <mutex>
#include <utility>
#include <vector>

namespace roomlattice::platform::linux {

struct LogWriter::Queue {
  Write write;

  std::mutex mutex;
  std::vector<std::string> lines;
  std::size_t lost = 0;

  BackgroundWork::Outcome empty();
};

BackgroundWork::Outcome LogWriter::Queue::empty() {
  std::unique_lock lock(mutex);
  const std::vector<std::string> next = std::exchange(lines, {});
  const std::size_t missing = std::exchange(lost, 0);
  lock.unlock();
  for (const std::string& line : next) {
    write(line);
  }
  if (missing > 0) {
    write(lineAboutLoss(missing));
  }
  return BackgroundWork::Outcome::Done;
}

LogWriter::LogWriter(Write write)
    : queue_(std::make_shared<Queue>()), thread_([queue = queue_] { return queue->empty(); }, {}) {
  queue_->write = std::move(write);
}

LogWriter::~LogWriter() {
  waitUntilWritten(endLimit);
}

void LogWriter::add(std::string line) {
  {
    const std::scoped_lock lock(queue_->mutex);
    if (queue_->lines.size() < mostLines) {
      queue_->lines.push_back(std::move(line));
    } else {
      ++queue_->lost;
    }
  }
  thread_.request();
}

}  // namespace roomlattice::platform::linux
