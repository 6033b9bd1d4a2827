#include "platform/linux/system/LogWriter.h"

#include <chrono>
#include <gmock/gmock.h>
#include <memory>
#include <semaphore>
#include <string>
#include <thread>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::linux::LogWriter;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

// What no test that passes waits for.
constexpr std::chrono::seconds patience{30};

/// A place for lines that takes none until it is opened.
struct SlowPlace {
  std::counting_semaphore<> begun{0};
  std::counting_semaphore<> open{0};
  std::vector<std::string> lines;

  void write(const std::string& line) {
    begun.release();
    open.acquire();
    lines.push_back(line);
  }
};

class LogWriterTest : public ::testing::Test {
 protected:
  // The thread may hold it for longer than the test lives.
  std::shared_ptr<SlowPlace> place_ = std::make_shared<SlowPlace>();
  std::unique_ptr<LogWriter> log_ =
      std::make_unique<LogWriter>([place = place_](const std::string& line) { place->write(line); });
};

TEST_F(LogWriterTest, KeepsNobodyWaitingAndTheOrder) {
  log_->add("one\n");
  place_->begun.acquire();
  log_->add("two\n");
  log_->add("three\n");
  place_->open.release(3);
  log_->waitUntilWritten(patience);
  EXPECT_THAT(place_->lines, ElementsAre("one\n", "two\n", "three\n"));
}

TEST_F(LogWriterTest, WritesWhatIsLeftBeforeItEnds) {
  place_->open.release(2);
  log_->add("one\n");
  log_->add("two\n");
  log_.reset();
  EXPECT_THAT(place_->lines, ElementsAre("one\n", "two\n"));
}

TEST_F(LogWriterTest, CountsLinesThatAreTooManyToWait) {
  log_->add("first\n");
  place_->begun.acquire();
  for (std::size_t i = 0; i < LogWriter::mostLines + 7; ++i) {
    log_->add("line\n");
  }
  place_->open.release(static_cast<std::ptrdiff_t>(LogWriter::mostLines) + 2);
  log_->waitUntilWritten(patience);
  ASSERT_THAT(place_->lines, SizeIs(LogWriter::mostLines + 2));
  EXPECT_THAT(place_->lines.back(), HasSubstr("lines lost here: 7\n"));
}

TEST_F(LogWriterTest, TakesLinesFromAnyThread) {
  place_->open.release(200);
  std::thread other([&] {
    for (int i = 0; i < 100; ++i) {
      log_->add("line\n");
    }
  });
  for (int i = 0; i < 100; ++i) {
    log_->add("line\n");
  }
  other.join();
  log_->waitUntilWritten(patience);
  EXPECT_THAT(place_->lines, AllOf(SizeIs(200), Each("line\n")));
}

}  // namespace
}  // namespace roomlattice::tests
