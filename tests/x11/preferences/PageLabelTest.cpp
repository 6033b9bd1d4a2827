#include "platform/x11/preferences/PageLabel.h"

#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::LabelControl;
using platform::x11::PageLabel;

class PageLabelTest : public ::testing::Test {
 protected:
  /// As wide as that share of its text.
  static PageLabel& sized(PageLabel& label, double share) {
    const QSize natural = label.sizeHint();
    label.resize(static_cast<int>(natural.width() * share), natural.height());
    return label;
  }

  static QString toolTip(PageLabel& label) {
    QToolTip::hideText();
    label.show();
    QHelpEvent event(QEvent::ToolTip, {5, 5}, label.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&label, &event);
    return QToolTip::text();
  }

  /// The share of its width that has ink in it, from the left to the last of it.
  static double inkedShare(PageLabel& label) {
    const QImage image = label.grab().toImage();
    const QRgb background = image.pixel(image.width() - 1, 0);
    int last = 0;
    for (int x = 0; x < image.width(); ++x) {
      for (int y = 0; y < image.height(); ++y) {
        last = image.pixel(x, y) == background ? last : x;
      }
    }
    return static_cast<double>(last) / image.width();
  }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  LabelControl control_{.text = "    A name of some length & more", .font = {.size = 13.0}};
};

TEST_F(PageLabelTest, IsDrawnNarrowerBeforeItIsCut) {
  PageLabel label(control_);
  EXPECT_EQ(toolTip(sized(label, 1.1)), QString());
  EXPECT_EQ(toolTip(sized(label, 0.82)), QString());
  EXPECT_GT(inkedShare(sized(label, 0.82)), 0.96);
}

TEST_F(PageLabelTest, TellsAllOfItsTextInAToolTipWhereItIsCut) {
  PageLabel label(control_);
  EXPECT_EQ(toolTip(sized(label, 0.6)), QStringLiteral("<span>A name of some length &amp; more</span>"));
}

TEST_F(PageLabelTest, HasNoToolTipWhereItBreaksIntoLines) {
  control_.wrapWidth = 60.0;
  PageLabel label(control_);
  label.resize(label.sizeHint());
  EXPECT_EQ(toolTip(label), QString());
}

}  // namespace
}  // namespace roomlattice::tests
