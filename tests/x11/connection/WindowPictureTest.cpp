#include "platform/x11/connection/WindowPicture.h"

#include "tests/linux/session/Wait.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/ScreenImage.h"
#include "tests/x11/session/X11Session.h"

#include <QPainter>
#include <QWidget>
#include <cstdlib>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::GlyphSet;
using platform::x11::NativeWindow;
using platform::x11::PackedPicture;
using platform::x11::PictureFormats;
using platform::x11::WindowPicture;

/// A window of the screen's depth in its corner, which nobody manages.
class Surface final : public QWidget {
 public:
  Surface() : QWidget(nullptr, Qt::Window | Qt::BypassWindowManagerHint) {
    setAttribute(Qt::WA_PaintOnScreen);
    setAttribute(Qt::WA_NoSystemBackground);
    setGeometry(0, 0, 600, 200);
    show();
  }
  QPaintEngine* paintEngine() const override { return nullptr; }
};

class WindowPictureTest : public ::testing::Test {
 protected:
  /// A text in large letters, all of which are of other shapes than those of another `turn`.
  static QImage text(const QColor& plate, const QColor& ink, double turn = 0.0) {
    QImage image(600, 200, QImage::Format_ARGB32_Premultiplied);
    image.fill(plate);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (int letter = 0; letter < 4; ++letter) {
      painter.save();
      painter.translate(80 + 140 * letter, 100);
      painter.rotate(turn + letter);
      painter.drawEllipse(QPoint(), 60, 40);
      painter.restore();
    }
    return image;
  }

  void put(const QImage& image) {
    picture_.put(PackedPicture::of(image).value(), glyphs_);
    native_.flush();
  }

  /// Whether the screen shows it, up to what is lost where numbers are rounded twice.
  bool shows(const QImage& image) {
    const QImage seen = screenImage(qt_.connection(), image.rect());
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (!similar(seen.pixelColor(x, y), image.pixelColor(x, y), 2)) {
          return false;
        }
      }
    }
    return true;
  }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  Surface surface_;
  NativeWindow native_{qt_.connection(), surface_};
  PictureFormats formats_{qt_.connection()};
  GlyphSet glyphs_{platform::x11::toolkitConnection(), formats_};
  WindowPicture picture_{native_};
};

TEST_F(WindowPictureTest, IsThePicture) {
  for (const auto& [plate, ink] : {std::pair(QColor(Qt::black), QColor(Qt::white)), {Qt::white, Qt::blue}}) {
    const QImage image = text(plate, ink);
    put(image);
    EXPECT_TRUE(waitFor([&] { return shows(image); })) << plate.name().toStdString();
  }
}

TEST_F(WindowPictureTest, IsThePictureWhereADetailHasColorsOfItsOwn) {
  QImage image = text(Qt::black, Qt::white);
  image.setPixelColor(80, 100, Qt::red);
  put(image);
  EXPECT_TRUE(waitFor([&] { return shows(image); }));
}

TEST_F(WindowPictureTest, IsThePictureAgainAfterMoreThanTheServerKeeps) {
  const QImage first = text(Qt::black, Qt::white);
  put(first);
  ASSERT_TRUE(waitFor([&] { return shows(first); }));
  // Four letters of about ten thousand pixels each time.
  for (int turn = 1; turn < 40; ++turn) {
    put(text(Qt::black, Qt::white, turn * 4.0));
  }
  put(first);
  EXPECT_TRUE(waitFor([&] { return shows(first); }));
}

}  // namespace
}  // namespace roomlattice::tests
