#include "platform/x11/drawing/TextLine.h"

#include "platform/x11/drawing/Text.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::TextLine;

class TextLineTest : public ::testing::Test {
 protected:
  /// The ink at the left and at the right end of the line, in rows from the top: only dots are as low as an ellipsis.
  static int highestInk(const QImage& image, int from, int to) {
    for (int y = 0; y < image.height(); ++y) {
      for (int x = from; x < to; ++x) {
        if (image.pixelColor(x, y).lightness() < 128) {
          return y;
        }
      }
    }
    return image.height();
  }

  QImage drawn(const TextLine& line) {
    QImage image(static_cast<int>(line.width()) + 1, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    line.draw(painter, QPointF(0.0, 40.0));
    return image;
  }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  QFont font_ = platform::x11::toQt(platform::Font{.size = 20.0});
};

TEST_F(TextLineTest, HasItsEllipsisWhereTheReaderComesToItLast) {
  struct Row {
    const char* text;
    bool isAtTheLeft;
  };
  for (const auto& [text, isAtTheLeft] :
       {Row{"Something that is long", false}, Row{"שולחן העבודה הראשי שלי", true}, Row{"مكتب العمل الرئيسي", true}}) {
    const TextLine line = TextLine::fitted(QString::fromUtf8(text), font_, 90.0);
    ASSERT_TRUE(line.text().endsWith(u'\u2026'));
    EXPECT_EQ(line.isRightToLeft(), isAtTheLeft);
    const QImage image = drawn(line);
    constexpr int dots = 14;
    const int left = highestInk(image, 0, dots);
    const int right = highestInk(image, image.width() - dots, image.width());
    EXPECT_EQ(left > right, isAtTheLeft) << text;
  }
}

TEST_F(TextLineTest, IsNeverWiderThanItMayBe) {
  const QString text = QStringLiteral("ببب ملف مشروع العمل");
  const double whole = TextLine(text, font_).width();
  for (double width = 20.0; width < whole; width += 1.0) {
    EXPECT_LE(TextLine::fitted(text, font_, width).width(), width);
  }
  EXPECT_EQ(TextLine::fitted(text, font_, whole).text(), text);
}

TEST_F(TextLineTest, IsCutBetweenWhatReadersTakeForCharacters) {
  const QString family = QString::fromUtf8("👩‍👩‍👧‍👦👩‍👩‍👧‍👦");
  const double whole = TextLine(family, font_).width();
  for (double width = 10.0; width < whole; width += 3.0) {
    const QString cut = TextLine::fitted(family, font_, width).text();
    EXPECT_TRUE(cut == QStringLiteral("…") || cut == family.left(family.size() / 2) + u'\u2026') << width;
  }
}

TEST_F(TextLineTest, KeepsTheBlanksAroundItWhileThereIsRoomForThem) {
  const QString cut = TextLine::fitted(QStringLiteral(" much too long for it "), font_, 90.0).text();
  EXPECT_TRUE(cut.startsWith(u' '));
  EXPECT_TRUE(cut.endsWith(QStringLiteral("\u2026 ")));
  EXPECT_EQ(TextLine::fitted(QStringLiteral(" much "), font_, 3.0).text(), QStringLiteral("…"));
}

TEST_F(TextLineTest, CountsTheBlanksAtBothEndsInEveryScript) {
  for (const char* text : {"Mail", "مكتب"}) {
    const QString name = QString::fromUtf8(text);
    const double blank = TextLine(QStringLiteral(" "), font_).width();
    EXPECT_GT(blank, 0.0);
    // A script may have a font of its own, whose blank is a little narrower or wider.
    const double both = TextLine(u' ' + name + u' ', font_).width() - TextLine(name, font_).width();
    EXPECT_GT(both, 1.5 * blank) << text;
    EXPECT_LT(both, 3.0 * blank) << text;
  }
}

}  // namespace
}  // namespace roomlattice::tests
