#include "tests/conformance/ConformanceTest.h"

namespace roomlattice::tests {
namespace {

using platform::Event;
using platform::EventField;

using EventsConformance = ConformanceTest;

TEST_F(EventsConformance, ReadsFieldsBackAsSet) {
  const std::unique_ptr<Event> event = platform().events().createEvent();
  ASSERT_NE(event, nullptr);
  event->setInteger(EventField::Phase, 2);
  event->setReal(EventField::Progress, -0.125);
  EXPECT_EQ(event->integer(EventField::Phase), 2);
  EXPECT_EQ(event->real(EventField::Progress), -0.125);
}

TEST_F(EventsConformance, ReadsUnsetFieldsAsZero) {
  const std::unique_ptr<Event> event = platform().events().createEvent();
  ASSERT_NE(event, nullptr);
  EXPECT_EQ(event->integer(EventField::GestureKind), 0);
  EXPECT_EQ(event->real(EventField::Velocity), 0.0);
}

TEST_F(EventsConformance, KeepsTheSmallestProgress) {
  const std::unique_ptr<Event> event = platform().events().createEvent();
  ASSERT_NE(event, nullptr);
  event->setReal(EventField::Progress, 1.401298464324817e-45);
  EXPECT_EQ(event->real(EventField::Progress), 1.401298464324817e-45);
}

}  // namespace
}  // namespace roomlattice::tests
