#include "support/FieldEvent.h"

#include <gtest/gtest.h>

#include <limits>

namespace roomlattice::tests {
namespace {

using platform::EventField;

/// An event of no backend.
class ForeignEvent : public platform::Event {
 public:
  std::int64_t integer(EventField field) const override { return static_cast<std::int64_t>(field); }
  double real(EventField field) const override { return static_cast<double>(field) / 2.0; }
  void setInteger(EventField, std::int64_t) override {}
  void setReal(EventField, double) override {}
};

TEST(FieldEventTest, ReadsFieldsThatWereNeverSetAsZero) {
  const FieldEvent event;
  EXPECT_EQ(event.integer(EventField::Kind), 0);
  EXPECT_EQ(event.real(EventField::Progress), 0.0);
}

TEST(FieldEventTest, KeepsNumbersExactly) {
  FieldEvent event;
  event.setInteger(EventField::Kind, std::numeric_limits<std::int64_t>::min());
  event.setReal(EventField::Progress, 1.401298464324817e-45);
  EXPECT_EQ(event.integer(EventField::Kind), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(event.real(EventField::Progress), 1.401298464324817e-45);
}

TEST(FieldEventTest, ConvertsBetweenTheKindsOfNumbers) {
  FieldEvent event;
  event.setInteger(EventField::Phase, 4);
  event.setReal(EventField::Velocity, -1.5);
  EXPECT_EQ(event.real(EventField::Phase), 4.0);
  EXPECT_EQ(event.integer(EventField::Velocity), -1);
}

TEST(FieldEventTest, CopiesAnyEvent) {
  const FieldEvent copy{ForeignEvent()};
  EXPECT_EQ(copy.integer(EventField::Phase), 132);
  EXPECT_EQ(copy.real(EventField::Progress), 62.0);
}

}  // namespace
}  // namespace roomlattice::tests
