#include "platform/x11/statusitem/ItemPictures.h"

#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <gtest/gtest.h>
#include <string>

namespace roomlattice::tests {
namespace {

using platform::x11::ItemPictureKey;
using platform::x11::ItemPictures;

ItemPictureKey keyOf(const std::string& title, const QSize& size = {100, 24}, double scale = 1.0) {
  return {.content = {.title = {.text = title}}, .colors = {Qt::white, Qt::black}, .size = size, .scale = scale};
}

class ItemPicturesTest : public ::testing::Test {
 protected:
  qint64 drawing(const ItemPictureKey& key) { return pictures_.picture(key).cacheKey(); }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  ItemPictures pictures_;
};

TEST_F(ItemPicturesTest, AreDrawnOnce) {
  const qint64 first = drawing(keyOf("Mail"));
  const qint64 second = drawing(keyOf("Work"));
  EXPECT_NE(first, second);
  EXPECT_EQ(drawing(keyOf("Mail")), first);
  EXPECT_EQ(drawing(keyOf("Work")), second);
}

TEST_F(ItemPicturesTest, AreOthersInOtherSizesScalesAndFonts) {
  const qint64 first = drawing(keyOf("Mail"));
  EXPECT_NE(drawing(keyOf("Mail", {120, 24})), first);
  EXPECT_NE(drawing(keyOf("Mail", {100, 24}, 2.0)), first);
  EXPECT_EQ(pictures_.picture(keyOf("Mail", {100, 24}, 2.0)).size(), QSize(200, 48));
  pictures_.clear();
  EXPECT_NE(drawing(keyOf("Mail")), first);
}

TEST_F(ItemPicturesTest, AreForgottenInTime) {
  const qint64 first = drawing(keyOf("Mail"));
  for (int number = 0; number < 1000; ++number) {
    drawing(keyOf(std::to_string(number)));
  }
  EXPECT_NE(drawing(keyOf("Mail")), first);
}

}  // namespace
}  // namespace roomlattice::tests
