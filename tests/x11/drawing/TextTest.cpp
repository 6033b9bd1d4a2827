#include "platform/x11/drawing/Text.h"

#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::Font;
using platform::FontFamily;
using platform::FontWeight;
using platform::TextAlignment;
using platform::x11::measureText;
using platform::x11::toQt;

class TextTest : public ::testing::Test {
 protected:
  /// The columns that get ink when the text is drawn into a frame of `width`.
  std::pair<int, int> inkColumns(const std::string& text, double width,
                                 TextAlignment alignment = TextAlignment::Center) {
    QImage image(500, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    platform::x11::drawText(painter, QRectF(50.0, 10.0, width, 40.0), text, toQt(Font{.size = 20.0}), Qt::black,
                            alignment);
    painter.end();
    std::pair<int, int> columns{image.width(), -1};
    for (int x = 0; x < image.width(); ++x) {
      for (int y = 0; y < image.height(); ++y) {
        if (image.pixelColor(x, y).lightness() < 128) {
          columns = {std::min(columns.first, x), x};
        }
      }
    }
    return columns;
  }

  double widthOf(const std::string& text) { return measureText(text, toQt(Font{.size = 20.0})).width; }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
};

TEST_F(TextTest, TakesAPointForALogicalPixel) {
  EXPECT_EQ(QFontInfo(toQt(Font{.size = 160.0, .weight = FontWeight::Heavy})).pixelSize(), 160);
}

TEST_F(TextTest, GrowsWithItsFont) {
  const auto small = measureText("Mail", toQt(Font{.size = 80.0}));
  const auto large = measureText("Mail", toQt(Font{.size = 160.0}));
  EXPECT_NEAR(large.width, 2 * small.width, 4.0);
  EXPECT_NEAR(large.height, 2 * small.height, 4.0);
}

TEST_F(TextTest, HasItsLineHeightWhenEmpty) {
  const auto empty = measureText("", toQt(Font{.size = 20.0}));
  EXPECT_EQ(empty.width, 0.0);
  EXPECT_EQ(empty.height, measureText("Mail", toQt(Font{.size = 20.0})).height);
}

TEST_F(TextTest, CountsTheBlanksAtBothEnds) {
  EXPECT_NEAR(widthOf(" Mail "), widthOf("Mail") + 2 * widthOf(" "), 0.01);
}

TEST_F(TextTest, IsWiderInAHeavyWeight) {
  const auto regular = measureText("Mail", toQt(Font{.size = 80.0}));
  const auto heavy = measureText("Mail", toQt(Font{.size = 80.0, .weight = FontWeight::Heavy}));
  EXPECT_GT(heavy.width, regular.width);
}

TEST_F(TextTest, HasEqualAdvancesInTheMonospacedFont) {
  const QFont font = toQt(Font{.family = FontFamily::MonospacedSystem, .size = 11.0});
  EXPECT_EQ(measureText("iiii", font), measureText("WWWW", font));
}

TEST_F(TextTest, IsOneLineWhateverIsInIt) {
  EXPECT_EQ(measureText("two\nlines", toQt(Font{})), measureText("two lines", toQt(Font{})));
}

TEST_F(TextTest, IsDrawnWithItsBlanksInTheMiddleOfItsFrame) {
  const double width = widthOf("    HH");
  const auto [first, last] = inkColumns("    HH", width);
  EXPECT_NEAR(first, 50.0 + widthOf("    "), 4.0);
  EXPECT_NEAR(last, 50.0 + width, 4.0);
}

TEST_F(TextTest, FitsAFrameOfItsMeasuredWidthWithoutAnEllipsis) {
  const auto [first, last] = inkColumns("HHHH", widthOf("HHHH"));
  const auto [wideFirst, wideLast] = inkColumns("HHHH", 300.0);
  EXPECT_NEAR(last - first, wideLast - wideFirst, 1);
}

TEST_F(TextTest, KeepsToItsFrameAndItsBlanksWhenItIsTooLong) {
  const auto [first, last] = inkColumns(" Something that is much too long ", 100.0);
  EXPECT_GE(first, 50);
  EXPECT_LE(last, 150 - widthOf(" ") / 2);
}

TEST_F(TextTest, KeepsToItsFrameInEveryScript) {
  for (const char* text : {"مكتب العمل الرئيسي للمشروع الكبير", "ببببببببببببببببببببب", "שולחן העבודה הראשי שלי",
                           "लंबा नाम डेस्कटॉप के लिए", "漢字漢字漢字漢字漢字漢字", "Mail مكتب العمل الرئيسي Mail"}) {
    for (double width = 40.0; width < widthOf(text); width += 7.0) {
      const auto [first, last] = inkColumns(text, width);
      EXPECT_GE(first, 49) << text << " in " << width;
      EXPECT_LE(last, 50 + width) << text << " in " << width;
    }
    EXPECT_FALSE(platform::x11::isCut(text, toQt(Font{.size = 20.0}), widthOf(text)));
  }
}

TEST_F(TextTest, BeginsAtTheRightWhereItIsReadFromThere) {
  const std::string hebrew = "שולחן";
  const auto [first, last] = inkColumns(hebrew, 300.0, TextAlignment::Leading);
  EXPECT_NEAR(last, 350, 3);
  EXPECT_NEAR(first, 350 - widthOf(hebrew), 3);
  const auto [latinFirst, latinLast] = inkColumns("HHH", 300.0, TextAlignment::Leading);
  EXPECT_NEAR(latinFirst, 50, 3);
}

TEST_F(TextTest, IsCutWhereItIsFarTooLong) {
  EXPECT_EQ(platform::x11::singleLine(std::string(1000, 'x')).size(), 1000);
  const QString cut = platform::x11::singleLine(std::string(1'000'000, 'x'));
  EXPECT_EQ(cut.size(), 1001);
  EXPECT_TRUE(cut.endsWith(u'\u2026'));
}

TEST_F(TextTest, IsNeverCutInsideACharacter) {
  std::string text(999, 'x');
  text += "\xF0\x9F\x98\x80\xF0\x9F\x98\x80";
  EXPECT_EQ(platform::x11::singleLine(text).size(), 1000);
  EXPECT_TRUE(platform::x11::singleLine(text).isValidUtf16());
}

}  // namespace
}  // namespace roomlattice::tests
