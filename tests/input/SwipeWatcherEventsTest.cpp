#include "support/FieldEvent.h"
#include "tests/support/ProgramFixture.h"
#include "tests/support/ShownWindows.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::EventField;

constexpr std::uint32_t dockEvent = 30;

FieldEvent swipeBeginning() {
  FieldEvent event;
  event.setInteger(EventField::Kind, 30);
  event.setInteger(EventField::GestureKind, 23);
  event.setInteger(EventField::Phase, 1);
  event.setReal(EventField::Velocity, 0.5);
  return event;
}

/// The beginning of a swipe by its fields, which nobody may read.
class UnreadableSwipe final : public platform::Event {
 public:
  std::int64_t integer(EventField field) const override {
    noteReading(field);
    return swipe_.integer(field);
  }
  double real(EventField field) const override {
    noteReading(field);
    return swipe_.real(field);
  }
  void setInteger(EventField, std::int64_t) override {}
  void setReal(EventField, double) override {}

 private:
  static void noteReading(EventField field) {
    ADD_FAILURE() << "field " << static_cast<std::uint32_t>(field) << " was read";
  }

  FieldEvent swipe_ = swipeBeginning();
};

/// What counts in an event and what does not, seen by the label that the program makes ahead of a swipe.
class SwipeWatcherEventsTest : public ProgramFixture {
 protected:
  /// Begins with the middle one of three desktops in front and no label but its own.
  void startInTheMiddle() {
    desktop.switchTo(desktop.desktopAt(1));
    restartProgram();
  }

  void passes(const platform::Event& event, std::uint32_t type = dockEvent) {
    desktop.events().listener()->eventPassed(event, type);
    desktop.advance(0s);
  }

  /// The sides that swipes went to: "L" and "R".
  std::string sides() {
    const auto hasLabel = [this](std::size_t index) { return labelOn(desktop, desktop.desktopAt(index)) != nullptr; };
    return std::string(hasLabel(0) ? "L" : "") + (hasLabel(2) ? "R" : "");
  }
};

TEST_F(SwipeWatcherEventsTest, TakesADirectionThatIsNotANumberForTheLeft) {
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  struct Row {
    double velocity;
    double progress;
    std::string side;
  };
  for (const Row& row : std::vector<Row>{{none, 0.3, "L"},
                                         {-none, 0.3, "L"},
                                         {none, none, "L"},
                                         {0.0, none, "L"},
                                         {0.5, none, "R"},
                                         {-0.5, none, "L"}}) {
    startInTheMiddle();
    FieldEvent event = swipeBeginning();
    event.setReal(EventField::Velocity, row.velocity);
    event.setReal(EventField::Progress, row.progress);
    passes(event);
    EXPECT_EQ(sides(), row.side) << row.velocity << " " << row.progress;
  }
}

TEST_F(SwipeWatcherEventsTest, ReadsNothingOfANoticeThatTheTapIsDisabled) {
  for (const std::uint32_t notice : {platform::tapEvent::disabledByTimeout, platform::tapEvent::disabledByUserInput}) {
    startInTheMiddle();
    passes(UnreadableSwipe(), notice);
    EXPECT_EQ(sides(), "");
    passes(swipeBeginning());
    EXPECT_EQ(sides(), "R");
  }
}

TEST_F(SwipeWatcherEventsTest, KnowsASwipeByItsFieldsWhateverTypeItComesAs) {
  for (const std::uint32_t type : {0U, 1U, 22U, 29U, 31U, 0x7FFFFFFFU, 0xFFFFFFFDU}) {
    startInTheMiddle();
    passes(swipeBeginning(), type);
    EXPECT_EQ(sides(), "R") << type;
  }
}

TEST_F(SwipeWatcherEventsTest, CountsASwipeWhateverItsAxis) {
  for (const std::int64_t axis : {-1, 0, 1, 2, 3}) {
    startInTheMiddle();
    FieldEvent event = swipeBeginning();
    event.setInteger(static_cast<EventField>(123), axis);
    passes(event);
    EXPECT_EQ(sides(), "R") << axis;
  }
}

}  // namespace
}  // namespace roomlattice::tests
