#include "tests/conformance/ConformanceTest.h"

#include <string>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::Control;
using platform::Rect;
using platform::Size;
using platform::UserInterface;
using platform::Window;

class UserInterfaceConformance : public ConformanceTest {
 protected:
  UserInterface& userInterface() { return platform().userInterface(); }
};

TEST_F(UserInterfaceConformance, HasAMainScreenAmongItsScreens) {
  const auto main = userInterface().mainScreen();
  ASSERT_TRUE(main.has_value());
  EXPECT_EQ(userInterface().screens().front(), *main);
  EXPECT_GT(main->frame.size.width, 0.0);
}

TEST_F(UserInterfaceConformance, MeasuresLongerTextsWiderAndEmptyOnesAsHighAsALine) {
  const platform::Font font{.size = 40.0, .weight = platform::FontWeight::Heavy};
  const Size line = userInterface().measure("Mail", font);
  EXPECT_GT(userInterface().measure("Mail and more", font).width, line.width);
  EXPECT_EQ(userInterface().measure("", font).width, 0.0);
  EXPECT_GT(userInterface().measure("Mail", {.size = 80.0}).height,
            userInterface().measure("Mail", {.size = 40.0}).height);
}

TEST_F(UserInterfaceConformance, MeasuresALineEndAsABlank) {
  const platform::Font font{.size = 40.0};
  const Size line = userInterface().measure("Work Mail", font);
  for (const char* text : {"Work\nMail", "Work\rMail", "Work\u2028Mail", "Work\u2029Mail"}) {
    EXPECT_EQ(userInterface().measure(text, font), line) << text;
  }
}

TEST_F(UserInterfaceConformance, GivesEveryControlASize) {
  const Control controls[] = {platform::LabelControl{.text = "x"},
                              platform::SliderControl{},
                              platform::CheckBoxControl{.title = "x"},
                              platform::PopUpControl{.items = {"x"}},
                              platform::ColorWellControl{},
                              platform::PushButtonControl{.title = "x"},
                              platform::SelectableTextControl{.text = "x"}};
  for (const Control& control : controls) {
    const Size size = userInterface().intrinsicSize(control);
    EXPECT_GT(size.width, 0.0) << control.index();
    EXPECT_GT(size.height, 0.0) << control.index();
  }
}

TEST_F(UserInterfaceConformance, BreaksLabelsAtTheirWrapWidth) {
  platform::LabelControl label{.text =
                                   "Reproduce the problem first, then click the button below and paste the result."};
  const Size line = userInterface().intrinsicSize(label);
  label.wrapWidth = line.width / 3.0;
  const Size wrapped = userInterface().intrinsicSize(label);
  EXPECT_LE(wrapped.width, *label.wrapWidth + 1.0);
  EXPECT_GT(wrapped.height, 2.0 * line.height);
}

class Plate final : public platform::View {
 public:
  platform::ViewContent content() const override { return {.background = platform::Color::black()}; }
};

class UserInterfaceWindowConformance : public UserInterfaceConformance {
 protected:
  std::unique_ptr<Window> make(double alpha = 0.0) {
    return userInterface().createOverlayWindow({.frame = frame_, .alpha = alpha});
  }

  Rect frame_{{200.0, 300.0}, {400.0, 120.0}};
};

TEST_F(UserInterfaceWindowConformance, HasTheFrameItWasGiven) {
  const std::unique_ptr<Window> window = make();
  EXPECT_EQ(window->frame(), frame_);
  const Rect other{{100.0, 150.0}, {300.0, 80.0}};
  window->setFrame(other);
  EXPECT_EQ(window->frame(), other);
}

TEST_F(UserInterfaceWindowConformance, OwnsItsContentView) {
  const std::unique_ptr<Window> window = make();
  EXPECT_EQ(window->contentView(), nullptr);
  auto view = std::make_unique<Plate>();
  platform::View* const given = view.get();
  window->setContentView(std::move(view));
  EXPECT_EQ(window->contentView(), given);
  EXPECT_NE(given->host(), nullptr);
}

TEST_F(UserInterfaceWindowConformance, HasANumberOfItsOwn) {
  const std::unique_ptr<Window> first = make();
  const std::unique_ptr<Window> second = make();
  first->orderFront();
  second->orderFront();
  EXPECT_NE(first->number(), second->number());
}

TEST_F(UserInterfaceWindowConformance, SetsItsAlphaAtOnceAndExactly) {
  const std::unique_ptr<Window> window = make();
  window->setAlpha(0.78);
  EXPECT_EQ(window->alpha(), 0.78);
}

TEST_F(UserInterfaceWindowConformance, FadesAndCallsItsCompletionOnce) {
  const std::unique_ptr<Window> window = make(1.0);
  int completions = 0;
  window->animateAlpha(0.0, 100ms, [&] { ++completions; });
  EXPECT_EQ(completions, 0);
  EXPECT_TRUE(runUntil([&] { return completions == 1; }));
  EXPECT_EQ(window->alpha(), 0.0);
  runFor(200ms);
  EXPECT_EQ(completions, 1);
}

TEST_F(UserInterfaceWindowConformance, TakesADurationOfZeroAsAtOnceAndCompletesLater) {
  const std::unique_ptr<Window> window = make(1.0);
  bool completed = false;
  window->animateAlpha(0.5, 0ms, [&] { completed = true; });
  EXPECT_EQ(window->alpha(), 0.5);
  EXPECT_FALSE(completed);
  EXPECT_TRUE(runUntil([&] { return completed; }));
}

TEST_F(UserInterfaceWindowConformance, EndsAnAnimationWhenItsAlphaIsSet) {
  const std::unique_ptr<Window> window = make(1.0);
  bool completed = false;
  window->animateAlpha(0.0, 100ms, [&] { completed = true; });
  window->setAlpha(0.25);
  runFor(300ms);
  EXPECT_EQ(window->alpha(), 0.25);
  EXPECT_FALSE(completed);
}

TEST_F(UserInterfaceWindowConformance, ReplacesARunningAnimation) {
  const std::unique_ptr<Window> window = make(1.0);
  std::string ended;
  window->animateAlpha(0.0, 200ms, [&] { ended += "a"; });
  window->animateAlpha(0.6, 50ms, [&] { ended += "b"; });
  EXPECT_TRUE(runUntil([&] { return !ended.empty(); }));
  runFor(300ms);
  EXPECT_EQ(ended, "b");
  EXPECT_EQ(window->alpha(), 0.6);
}

TEST_F(UserInterfaceWindowConformance, DropsTheCompletionOfAnAnimationThatItDoesNotOutlive) {
  std::unique_ptr<Window> window = make(1.0);
  bool completed = false;
  window->animateAlpha(0.0, 100ms, [&] { completed = true; });
  window.reset();
  runFor(300ms);
  EXPECT_FALSE(completed);
}

TEST_F(UserInterfaceWindowConformance, MayBeOwnedByItsCompletion) {
  std::shared_ptr<Window> window = make(1.0);
  const std::weak_ptr<Window> weak = window;
  Window& fading = *window;
  fading.animateAlpha(0.0, 50ms, [window = std::move(window)] { window->orderOut(); });
  EXPECT_FALSE(weak.expired());
  EXPECT_TRUE(runUntil([&] { return weak.expired(); }));
}

}  // namespace
}  // namespace roomlattice::tests
