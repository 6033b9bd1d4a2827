#include "platform/x11/connection/GlyphSet.h"

#include "tests/x11/session/X11Session.h"

#include <gtest/gtest.h>
#include <memory>

namespace roomlattice::tests {
namespace {

using platform::x11::GlyphMask;
using platform::x11::GlyphSet;
using platform::x11::PictureFormats;
using platform::x11::replyTo;
using platform::x11::X11Connection;

class GlyphSetTest : public ::testing::Test {
 protected:
  /// The number that the set gives to a shape of so many bytes, known by that number.
  std::uint32_t glyph(int key, int bytes = 64) {
    return glyphs_.glyph(QByteArray::number(key), [&] {
      ++asked_;
      return GlyphMask{.size = {64, bytes / 64},
                       .coverage = std::vector<std::uint8_t>(static_cast<std::size_t>(bytes))};
    });
  }

  /// How often a shape had to be asked for since the last time.
  int asked() { return std::exchange(asked_, 0); }

  X11Session session_{{.windowManager = std::nullopt}};
  std::unique_ptr<X11Connection> connection_ = X11Connection::open();
  PictureFormats formats_{*connection_};
  GlyphSet glyphs_{connection_->raw(), formats_};
  int asked_ = 0;
};

TEST_F(GlyphSetTest, IsMadeOnce) {
  EXPECT_NE(glyphs_.id(), 0U);
  EXPECT_EQ(glyphs_.id(), glyphs_.id());
}

TEST_F(GlyphSetTest, AsksForAShapeOnce) {
  glyphs_.id();
  const std::uint32_t first = glyph(1);
  const std::uint32_t second = glyph(2);
  EXPECT_NE(first, second);
  EXPECT_EQ(asked(), 2);
  EXPECT_EQ(glyph(1), first);
  EXPECT_EQ(asked(), 0);
}

TEST_F(GlyphSetTest, ForgetsWhatWasNotWantedForLong) {
  glyphs_.id();
  constexpr int third = 400'000;
  glyph(1, third);
  glyph(2, third);
  glyph(1, third);
  glyph(3, third);
  ASSERT_EQ(asked(), 3);
  // Nothing is forgotten before it can have been drawn.
  glyph(2, third);
  glyph(1, third);
  glyph(3, third);
  EXPECT_EQ(asked(), 0);
  glyphs_.trim();
  glyph(1, third);
  glyph(3, third);
  EXPECT_EQ(asked(), 0);
  glyph(2, third);
  EXPECT_EQ(asked(), 1);
}

TEST_F(GlyphSetTest, AsksTheServerForNothingThatItDoesNotHave) {
  glyphs_.id();
  for (int key = 0; key < 8; ++key) {
    glyph(key, 400'000);
    glyphs_.trim();
  }
  // Errors come before the answer.
  replyTo(connection_->raw(), xcb_get_input_focus(connection_->raw()), xcb_get_input_focus_reply);
  EXPECT_EQ(xcb_poll_for_event(connection_->raw()), nullptr);
}

}  // namespace
}  // namespace roomlattice::tests
