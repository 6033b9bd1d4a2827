#import "platform/macos/MacPlatform.h"

#import <AppKit/AppKit.h>
#import <Foundation/NSDebug.h>
#import <GNUstepBase/GSObjCRuntime.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

#include "tests/macos/MainLoop.h"
#include "tests/macos/supplement/EventStream.h"
#include "tests/macos/supplement/SpaceServer.h"
#include "tests/macos/supplement/StatusBar.h"

namespace roomlattice::platform::macos {
namespace {

using namespace std::chrono_literals;

/// How many objects of the backend's own classes live, and of the classes whose objects it owns.
std::map<std::string, int> liveObjects() {
  std::map<std::string, int> counts{{"Quartz", gnustep::EventStream::liveObjects()},
                                    {"answers of the window server", gnustep::SpaceServer::liveAnswers()}};
  for (NSString* name in @[
         @"RoomlatticeAction", @"RoomlatticeApplicationDelegate", @"RoomlatticeMenuDelegate",
         @"RoomlatticeTextFieldDelegate", @"RoomlatticeView", @"NSMenu", @"NSMenuItem", @"NSButton", @"NSSlider",
         @"NSPopUpButton", @"NSColorWell", @"NSProgressIndicator", @"NSTabViewItem", @"NSTask", @"NSPipe",
         @"SupplementStatusItem"
       ]) {
    counts[[name UTF8String]] = GSDebugAllocationCount(NSClassFromString(name));
  }
  return counts;
}

/// A row with all that a view can have.
class FullView final : public View {
 public:
  FullView() { setFrame({{}, {220.0, 24.0}}); }

  ViewContent content() const override {
    return {.elements = {{.kind = TextElement{.text = "Mail"}},
                         {.kind = ImageElement{.image = {.size = {14.0, 14.0}}}},
                         {.kind = SpinnerElement{}},
                         {.kind = ButtonElement{.symbol = {.name = "pencil"}}},
                         {.kind = TextFieldElement{}}}};
  }
};

class LiveObjectsTest : public testing::Test {
 protected:
  LiveObjectsTest() {
    GSDebugAllocationActive(YES);
    gnustep::SpaceServer::shared().reset();
  }
  ~LiveObjectsTest() override { GSDebugAllocationActive(NO); }

  /// What is left of ten rounds, after one that makes what the system keeps for good.
  static void expectBalance(const std::function<void()>& round) {
    runRound(round);
    const std::map<std::string, int> before = liveObjects();
    for (int i = 0; i < 10; ++i) {
      runRound(round);
    }
    EXPECT_EQ(liveObjects(), before);
  }

 private:
  static void runRound(const std::function<void()>& round) {
    @autoreleasepool {
      round();
      tests::runFor(50ms);
    }
  }
};

TEST_F(LiveObjectsTest, ComeAndGoWithWindows) {
  const std::unique_ptr<Platform> platform = makePlatform();
  expectBalance([&] {
    const auto window = platform->userInterface().createOverlayWindow({.frame = {{10.0, 10.0}, {300.0, 80.0}}});
    window->setContentView(std::make_unique<FullView>());
    EXPECT_GT(liveObjects().at("RoomlatticeView"), 0);
    window->orderFront();
    window->animateAlpha(1.0, 10s, [] {});
    window->setContentView(std::make_unique<FullView>());
  });
}

TEST_F(LiveObjectsTest, ComeAndGoWithMenus) {
  const std::unique_ptr<Platform> platform = makePlatform();
  expectBalance([&] {
    Menu menu;
    menu.needsUpdate = [](Menu& updated) {
      updated.items.clear();
      updated.items.emplace_back(ViewItem{std::make_unique<FullView>()});
      updated.items.emplace_back(SeparatorItem{});
      updated.items.emplace_back(CommandItem{"Preferences\u2026", ",", [] {}});
    };
    const auto item = platform->userInterface().createStatusItem(VariableLength{});
    item->setMenu(&menu);
    for (int opening = 0; opening < 2; ++opening) {
      gnustep::openMenu([gnustep::statusItems() lastObject]);
      tests::runFor(20ms);
      gnustep::closeMenu();
    }
  });
}

TEST_F(LiveObjectsTest, ComeAndGoWithThePreferences) {
  const std::unique_ptr<Platform> platform = makePlatform();
  TabbedWindowModel model{
      .title = "Preferences", .contentSize = {520.0, 480.0}, .tabFrame = {{12.0, 12.0}, {496.0, 456.0}}};
  model.pages.push_back({.identifier = "a", .label = "A", .size = {490.0, 400.0}});
  for (const Control& control : std::initializer_list<Control>{
           LabelControl{.text = "x"}, SliderControl{}, CheckBoxControl{.title = "x"}, PopUpControl{.items = {"x", "y"}},
           ColorWellControl{}, PushButtonControl{.title = "x"}, SelectableTextControl{.text = "x"}}) {
    model.pages.back().controls.push_back({.frame = {{10.0, 10.0}, {100.0, 24.0}}, .control = control});
  }
  expectBalance([&] { platform->userInterface().createTabbedWindow(model)->show(); });
}

TEST_F(LiveObjectsTest, ComeAndGoWithEventsTapsMonitorsAndObservers) {
  const std::unique_ptr<Platform> platform = makePlatform();
  expectBalance([&] {
    const auto event = platform->events().createEvent();
    event->setInteger(EventField::Phase, 1);
    platform->events().post(*event);
    const auto tap = platform->events().createTap([](const Event&, std::uint32_t) {});
    tap->enable();
    const Registration moves = platform->events().monitorGlobalMouseMoved([] {});
    const Registration keys =
        platform->events().monitorLocalKeyDown([](const KeyEvent&) { return KeyDisposition::PassOn; });
    const Registration observer = platform->notifications().workspaceCenter().observe("SomethingHappened", [] {});
    const Registration activity =
        platform->system().beginActivity(ActivityKind::UserInitiatedAllowingIdleSystemSleep, "reason");
    static_cast<void>(platform->windowServer().managedDisplaySpaces());
  });
}

TEST_F(LiveObjectsTest, ComeAndGoWithChildProcesses) {
  const std::unique_ptr<Platform> platform = makePlatform();
  expectBalance([&] { static_cast<void>(platform->system().run("/bin/echo", {"line"})); });
}

TEST_F(LiveObjectsTest, ComeAndGoWithThePlatform) {
  expectBalance([] {
    const std::unique_ptr<Platform> platform = makePlatform();
    platform->dispatcher().async([] {});
    const Registration timer = platform->dispatcher().repeat(1ms, 1ms, [] {});
  });
}

}  // namespace
}  // namespace roomlattice::platform::macos
