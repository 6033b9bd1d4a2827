#include "platform/linux/system/StandardStreams.h"

#include "tests/linux/session/StandardErrorInstead.h"

#include <array>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace roomlattice::tests {
namespace {

using platform::linux::FileDescriptor;
using platform::linux::prepareStandardStreams;
using platform::linux::writeAtOnce;
using platform::linux::writeToStandardError;
using ::testing::EndsWith;
using ::testing::HasSubstr;

struct Ends {
  FileDescriptor reader;
  FileDescriptor writer;

  /// What can be read now.
  std::string text() const {
    std::string all;
    std::array<char, 65536> buffer{};
    for (ssize_t count = 0; (count = read(reader.get(), buffer.data(), buffer.size())) > 0;) {
      all.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return all;
  }

  /// Writes until not a byte more finds room.
  void fill() const {
    std::string filling(65536, 'x');
    while (!filling.empty()) {
      while (writeAtOnce(writer.get(), filling) == filling.size()) {
      }
      filling.resize(filling.size() / 2);
    }
  }
};

Ends makePipe() {
  std::array<int, 2> ends{-1, -1};
  EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
  fcntl(ends[0], F_SETFL, O_NONBLOCK);
  return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

Ends makeSocket() {
  std::array<int, 2> ends{-1, -1};
  EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
  fcntl(ends[0], F_SETFL, O_NONBLOCK);
  return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

class StandardStreamsTest : public ::testing::TestWithParam<Ends (*)()> {};

TEST_P(StandardStreamsTest, TakeALine) {
  const Ends ends = GetParam()();
  {
    const StandardErrorInstead instead(ends.writer);
    prepareStandardStreams();
    writeToStandardError("line\n");
  }
  EXPECT_EQ(ends.text(), "line\n");
}

TEST_P(StandardStreamsTest, TellHowManyLinesFoundNoRoom) {
  const Ends ends = GetParam()();
  {
    const StandardErrorInstead instead(ends.writer);
    prepareStandardStreams();
    ends.fill();
    writeToStandardError("first\n");
    writeToStandardError("second\n");
    ends.text();
    writeToStandardError("third\n");
    writeToStandardError("fourth\n");
  }
  const std::string text = ends.text();
  EXPECT_THAT(text, HasSubstr("lines lost here: 2\n"));
  EXPECT_THAT(text, EndsWith("third\nfourth\n"));
}

TEST_P(StandardStreamsTest, BeginANewLineAfterOneThatWasCut) {
  const Ends ends = GetParam()();
  std::string former;
  {
    const StandardErrorInstead instead(ends.writer);
    prepareStandardStreams();
    writeToStandardError(std::string(1U << 24U, 'y') + "\n");
    former = ends.text();
    writeToStandardError("next\n");
  }
  EXPECT_THAT(former, EndsWith("y"));
  EXPECT_EQ(ends.text().front(), '\n');
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, StandardStreamsTest, ::testing::Values(makePipe, makeSocket));

TEST(StandardStreamsOpeningTest, WaitForNoRoomInAPipeThatOthersWaitFor) {
  const Ends ends = makePipe();
  const StandardErrorInstead instead(ends.writer);
  prepareStandardStreams();
  EXPECT_NE(fcntl(STDERR_FILENO, F_GETFL) & O_NONBLOCK, 0);
  EXPECT_EQ(fcntl(ends.writer.get(), F_GETFL) & O_NONBLOCK, 0);
}

TEST(StandardStreamsOpeningTest, AreAllOpenAfterwards) {
  std::array<FileDescriptor, 3> former;
  for (int file = 0; file < 3; ++file) {
    former.at(static_cast<std::size_t>(file)) = FileDescriptor(fcntl(file, F_DUPFD_CLOEXEC, 3));
    close(file);
  }
  prepareStandardStreams();
  std::array<int, 3> flags{};
  for (int file = 0; file < 3; ++file) {
    flags.at(static_cast<std::size_t>(file)) = fcntl(file, F_GETFD);
    dup2(former.at(static_cast<std::size_t>(file)).get(), file);
  }
  EXPECT_THAT(flags, ::testing::ElementsAre(0, 0, 0));
}

}  // namespace
}  // namespace roomlattice::tests
