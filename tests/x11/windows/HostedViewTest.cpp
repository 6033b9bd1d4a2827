#include "platform/x11/windows/HostedView.h"

#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QToolTip>
#include <QWidget>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::ButtonElement;
using platform::EditCommand;
using platform::SpinnerElement;
using platform::TextElement;
using platform::TextFieldElement;
using platform::ViewContent;
using platform::x11::HostedView;
using platform::x11::X11TextField;

/// A view that has everything a user can work, and counts what it is told.
class CountingView final : public platform::View {
 public:
  CountingView() { setFrame({{}, {200.0, 60.0}}); }

  ViewContent content() const override {
    return {.elements = {
                {.frame = {{10.0, 40.0}, {100.0, 16.0}}, .kind = TextElement{.text = text}},
                {.frame = {{120.0, 40.0}, {16.0, 16.0}}, .hidden = !spins, .kind = SpinnerElement()},
                {.frame = {{140.0, 40.0}, {16.0, 16.0}}, .kind = ButtonElement{}},
                {.frame = {{10.0, 5.0}, {180.0, 24.0}}, .hidden = !isEditing, .kind = TextFieldElement{}},
            }};
  }

  using View::contentChanged;
  void mouseEntered() override { ++told; }
  void mouseExited() override { ++told; }
  void mouseUp(platform::Point) override { ++told; }
  void buttonClicked() override { ++told; }
  platform::CommandDisposition doCommand(EditCommand) override {
    ++told;
    return platform::CommandDisposition::Handled;
  }

  std::string text = "Mail";
  bool spins = false;
  bool isEditing = false;
  int told = 0;
};

class PaintCounter final : public QObject {
 public:
  explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }

  int count = 0;
};

class HostedViewTest : public ::testing::Test {
 protected:
  QWidget& show() {
    hosted_ = std::make_unique<HostedView>(view_, window_);
    hosted_->widget().show();
    window_.show();
    EXPECT_TRUE(waitFor([this] { return window_.isActiveWindow(); }));
    settle();
    // The pointer may be over it.
    view_.told = 0;
    return hosted_->widget();
  }

  static void settle() {
    QGuiApplication::sync();
    static_cast<void>(waitFor([] { return false; }, 200ms));
  }

  /// All that can be done with the mouse and the keyboard.
  static void work(QWidget& widget) {
    QEnterEvent enter({5.0, 5.0}, {5.0, 5.0}, {5.0, 5.0});
    QCoreApplication::sendEvent(&widget, &enter);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, {5.0, 5.0}, {5.0, 5.0}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
      QCoreApplication::sendEvent(&widget, &event);
    }
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&widget, &leave);
    widget.findChild<QAbstractButton*>()->click();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(widget.findChild<QLineEdit*>(), &press);
  }

  X11Session session_;
  QtApplication qt_;
  CountingView view_;
  QWidget window_;
  std::unique_ptr<HostedView> hosted_;
};

TEST_F(HostedViewTest, TellsTheViewWhatIsDoneWithItAndNothingOnceItIsHostedNoLonger) {
  QWidget& widget = show();
  work(widget);
  EXPECT_EQ(view_.told, 5);
  hosted_.reset();
  work(widget);
  EXPECT_EQ(view_.told, 5);
}

TEST_F(HostedViewTest, TakesAClickOnEveryPixelLineFromTheTopmostToTheLowest) {
  QWidget& widget = show();
  for (const double y : {0.0, 59.0}) {
    view_.told = 0;
    QMouseEvent event(QEvent::MouseButtonRelease, {199.0, y}, {199.0, y}, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
    EXPECT_EQ(view_.told, 1) << y;
  }
}

TEST_F(HostedViewTest, TellsATextThatIsCutInAToolTip) {
  QWidget& widget = show();
  const auto toolTip = [&widget] {
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, {20, 10}, widget.mapToGlobal(QPoint(20, 10)));
    QCoreApplication::sendEvent(&widget, &event);
    return QToolTip::text();
  };
  EXPECT_EQ(toolTip(), QString());
  view_.text = "Letters & <b>much</b> else that there is no room for";
  view_.contentChanged();
  EXPECT_EQ(toolTip(),
            QStringLiteral("<span>Letters &amp; &lt;b&gt;much&lt;/b&gt; else that there is no room for</span>"));
}

TEST_F(HostedViewTest, LetsItsWidgetGoWhenTheToolkitIsDoneWithIt) {
  const QPointer<QWidget> widget = &show();
  hosted_.reset();
  EXPECT_NE(widget, nullptr);
  EXPECT_TRUE(waitFor([&] { return widget == nullptr; }));
}

TEST_F(HostedViewTest, IsPaintedAnewOnlyWhenTheViewShowsSomethingElse) {
  PaintCounter paints(show());
  view_.contentChanged();
  settle();
  EXPECT_EQ(paints.count, 0);
  view_.text = "Letters";
  view_.contentChanged();
  EXPECT_TRUE(waitFor([&] { return paints.count >= 1; }));
}

TEST_F(HostedViewTest, TurnsASpinnerOnlyWhileThereIsOneToBeSeen) {
  PaintCounter paints(show());
  view_.spins = true;
  view_.contentChanged();
  EXPECT_TRUE(waitFor([&] { return paints.count >= 5; }));
  view_.spins = false;
  view_.contentChanged();
  settle();
  paints.count = 0;
  settle();
  EXPECT_EQ(paints.count, 0);
}

TEST_F(HostedViewTest, TurnsItsSpinnerAgainWhenItIsShownAgain) {
  view_.spins = true;
  PaintCounter paints(show());
  window_.hide();
  settle();
  paints.count = 0;
  settle();
  EXPECT_EQ(paints.count, 0);
  window_.show();
  EXPECT_TRUE(waitFor([&] { return paints.count >= 5; }));
}

TEST_F(HostedViewTest, GivesTheKeyboardToItsWindowWhenTheFieldThatHasItIsHidden) {
  view_.isEditing = true;
  show();
  X11TextField* field = hosted_->textField();
  field->focusAndSelectAll();
  ASSERT_EQ(window_.focusWidget(), field);
  view_.isEditing = false;
  view_.contentChanged();
  EXPECT_EQ(QApplication::focusWidget(), &window_);
}

}  // namespace
}  // namespace roomlattice::tests
