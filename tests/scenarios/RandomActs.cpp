#include "tests/scenarios/RandomActs.h"

#include "platform/simulated/SimulatedTabbedWindow.h"
#include "preferences/PreferencesStore.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <variant>

namespace roomlattice::tests {
namespace {

using platform::DockSwipe;

using namespace std::chrono_literals;
using platform::Direction;
using platform::Point;
using platform::Rect;
using platform::SpaceID;
using platform::simulated::MenuSession;
using platform::simulated::Space;
using platform::simulated::SwipeMotion;
using platform::simulated::TapDisabling;

using World = ScenarioWorld;
using Random = Randomness;

constexpr std::size_t mostSpaces = 14;

SpaceID anySpace(const World& world, Random& random) {
  const std::vector<Space> spaces = world.desktop.spaces().all();
  return spaces.empty() ? 0 : random.oneOf(spaces).id;
}

std::size_t anyDisplay(const World& world, Random& random) {
  return random.below(world.desktop.spaces().displays().size() + 1);
}

Rect screen(const World& world) {
  return world.desktop.settings().main().value_or(world.desktop.settings().screens.front()).frame;
}

/// What changes the list is not reported everywhere; the world notes when it was not.
template <class Change>
void changeList(World& world, Change change) {
  const auto before = world.desktop.spaces();
  const bool reported = !world.desktop.faults.listChangesNotReported;
  const SpaceID active = world.desktop.activeSpace();
  change();
  if (!reported && world.desktop.spaces() != before && world.desktop.activeSpace() == active) {
    world.listUnreported = true;
  }
}

void addRandomSpace(World& world, Random& random, std::int64_t type) {
  if (world.desktop.spaces().all().size() >= mostSpaces || world.desktop.spaces().displays().empty()) {
    return;
  }
  changeList(world, [&] {
    world.desktop.addDesktop(
        {.type = type, .display = random.below(world.desktop.spaces().displays().size()), .position = random.below(5)});
  });
}

void removeFullScreenSpace(World& world, Random&) {
  const std::vector<Space> spaces = world.desktop.spaces().all();
  const auto found = std::ranges::find_if(spaces, [](const Space& space) { return !space.isRegular(); });
  if (found != spaces.end()) {
    changeList(world, [&] { world.desktop.removeDesktop(found->id); });
  }
}

void enterFullScreen(World& world, Random&) {
  if (!world.desktop.spaces().displays().empty() && world.desktop.spaces().all().size() < mostSpaces) {
    world.desktop.enterFullScreen();
  }
}

void addDisplay(World& world, Random& random) {
  if (world.desktop.spaces().displays().size() < 3) {
    changeList(world, [&] { world.desktop.addDisplay("Another display", static_cast<int>(random.below(3))); });
  }
}

void chooseRow(World& world, Random& random) {
  const auto menu = world.desktop.menu();
  if (menu != nullptr) {
    world.user.clicksRow(random.below(menu->items().size() - 1));
  }
}

void toggleMenu(World& world, Random&) {
  if (world.desktop.statusItem() != nullptr) {
    world.user.clicksStatusItem();
  }
}

void rename(World& world, Random& random) {
  static const std::vector<std::string> names = {"", "Mail", "  Code ", " ", "A rather long name for a desktop", "Ünï"};
  if (world.desktop.menu() == nullptr) {
    toggleMenu(world, random);
  }
  const auto menu = world.desktop.menu();
  if (menu == nullptr || menu->focusedField() != nullptr || menu->view(0) == nullptr) {
    return;
  }
  const auto rows = std::ranges::count_if(
      menu->items(), [](const auto& item) { return std::holds_alternative<platform::ViewItem>(item); });
  // A row shows its button when the pointer comes into it.
  world.movesPointerTo({screen(world).midX(), screen(world).minY() + 5.0});
  world.user.clicksRowButton(random.below(static_cast<std::size_t>(rows)));
  world.user.types(random.oneOf(names));
  world.user.pressesKey(random.outOf(4) ? platform::keyCode::escape : platform::keyCode::returnKey);
}

void renameElsewhere(World& world, Random& random) {
  static const std::vector<std::string> names = {"", "Mail", " Web ", "Workspace 2", "7", "Another rather long name"};
  if (const std::vector<Space> spaces = world.desktop.spaces().all(); !spaces.empty()) {
    world.desktop.names().rename(random.oneOf(spaces).uuid, random.oneOf(names));
  }
}

void numberDesktopsAnew(World& world, Random& random) {
  platform::DesktopNames::Names names;
  for (const Space& space : world.desktop.spaces().all()) {
    names[space.uuid] = "Workspace " + std::to_string(names.size() + 1);
  }
  world.desktop.names().replace(random.outOf(3) ? std::nullopt : std::optional(names));
}

void visitPreferences(World& world, Random& random) {
  if (auto* const window = world.desktop.tabbedWindow(); window != nullptr && window->isVisible()) {
    world.user.closesWindow();
    return;
  }
  if (world.desktop.menu() == nullptr) {
    toggleMenu(world, random);
  }
  if (world.desktop.menu() != nullptr) {
    world.user.clicksCommand("Preferences\u2026");
  }
}

void setPreference(World& world, Random& random) {
  if (!world.isRunning()) {
    return;
  }
  world.framesStale = false;
  PreferencesStore& store = PreferencesStore::shared();
  switch (random.below(8)) {
    case 0:
    case 1:
      store.setShowSignInSwipeMode(!store.showSignInSwipeMode());
      break;
    case 2:
      store.setShowSignAfterSelection(!store.showSignAfterSelection());
      break;
    case 3:
      store.setInstantMenuSwitch(!store.instantMenuSwitch());
      break;
    case 4:
      store.setShowSpaceNameInMenuBar(!store.showSpaceNameInMenuBar());
      break;
    case 5:
      store.setSignTextSize(random.oneOf(std::vector{40.0, 160.0, 400.0}));
      break;
    default:
      store.setSignSwipeAlpha(random.oneOf(std::vector{0.0, 0.05, 0.3, 0.78, 0.78, 1.0}));
      break;
  }
}

void changeScreens(World& world, Random& random) {
  static const std::vector<std::vector<Rect>> arrangements = {
      {{{0.0, 0.0}, {1440.0, 900.0}}},
      {{{0.0, 0.0}, {800.0, 600.0}}},
      {{{0.0, 0.0}, {1440.0, 900.0}}, {{1440.0, 0.0}, {1920.0, 1080.0}}},
      {{{-1600.0, 200.0}, {1600.0, 1000.0}}, {{0.0, 0.0}, {1440.0, 900.0}}},
  };
  world.framesStale = false;
  world.desktop.setScreens(random.oneOf(arrangements));
}

void moveFocus(World& world, Random& random) {
  world.framesStale = true;
  const std::size_t index = random.below(world.desktop.settings().screens.size() + 1);
  world.desktop.setMainScreen(index == 2 ? std::nullopt : std::optional(index));
}

void moveFingers(World& world, Random& random) {
  static const std::vector<DockSwipe::Phase> phases = {DockSwipe::Began, DockSwipe::Changed, DockSwipe::Ended,
                                                       DockSwipe::Cancelled};
  const SwipeMotion motion{.progress = 2.0 * random.fraction() - 1.0, .velocity = 4.0 * random.fraction() - 2.0};
  world.user.movesFingers(random.oneOf(phases), motion);
}

void pointAnywhere(World& world, Random& random) {
  const Rect frame = screen(world);
  world.movesPointerTo(
      {frame.minX() + random.fraction() * frame.size.width, frame.minY() + random.fraction() * frame.size.height});
}

void changeFault(World& world, Random& random) {
  platform::simulated::Faults& faults = world.desktop.faults;
  switch (random.below(8)) {
    case 0:
      faults.swipesDropped = static_cast<int>(random.below(4));
      break;
    case 1:
      faults.allSwipesDropped = random.outOf(3);
      break;
    case 2:
      faults.swipesDelayedBy = random.outOf(2) ? 0s : random.upTo(1500ms);
      break;
    case 3:
      faults.extraActiveSpaceNotices = static_cast<int>(random.below(3));
      break;
    case 4:
      faults.listChangesNotReported = random.outOf(2);
      break;
    case 5:
      faults.eventsNotCreated = static_cast<int>(random.below(5));
      break;
    case 6:
      faults.accessibilityDenied = random.outOf(4);
      break;
    default:
      faults.pointerMonitorsRefused = random.outOf(4);
      break;
  }
}

}  // namespace

const std::vector<RandomAct>& randomActs() {
  static const std::vector<RandomAct> acts = {
      {"a moment passes", 25, [](World& w, Random& r) { w.desktop.advance(r.upTo(50ms)); }},
      {"a second passes", 15, [](World& w, Random& r) { w.desktop.advance(r.upTo(1s)); }},
      {"a while passes", 3, [](World& w, Random& r) { w.desktop.advance(r.upTo(20s)); }},
      {"swipes right", 6, [](World& w, Random&) { w.user.swipes(Direction::Right); }},
      {"swipes left", 6, [](World& w, Random&) { w.user.swipes(Direction::Left); }},
      {"moves fingers", 4, moveFingers},
      {"goes to the corner", 4,
       [](World& w, Random&) {
         w.movesPointerTo({screen(w).minX() + 1.0, screen(w).maxY() - 1.0});
       }},
      {"points at the labels", 5,
       [](World& w, Random&) {
         w.movesPointerTo({screen(w).midX(), screen(w).midY()});
       }},
      {"points aside", 4,
       [](World& w, Random&) {
         w.movesPointerTo({screen(w).midX(), screen(w).minY() + 5.0});
       }},
      {"points anywhere", 3, pointAnywhere},
      {"clicks the status item", 3, toggleMenu},
      {"clicks a row", 4, chooseRow},
      {"renames", 2, rename},
      {"renames elsewhere", 2, renameElsewhere},
      {"desktops are numbered anew", 1, numberDesktopsAnew},
      {"opens or closes the preferences", 1, visitPreferences},
      {"sets a preference", 3, setPreference},
      {"sets the opacity from outside", 1,
       [](World& w, Random& r) { w.desktop.storedDefaults()["SignSwipeAlpha"] = r.fraction(); }},
      {"switches otherwise", 6, [](World& w, Random& r) { w.desktop.switchTo(anySpace(w, r)); }},
      {"adds a desktop", 3, [](World& w, Random& r) { addRandomSpace(w, r, 0); }},
      {"adds a full-screen space", 1, [](World& w, Random& r) { addRandomSpace(w, r, 4); }},
      {"removes a space", 3,
       [](World& w, Random& r) { changeList(w, [&] { w.desktop.removeDesktop(anySpace(w, r)); }); }},
      {"moves a space", 2,
       [](World& w, Random& r) { changeList(w, [&] { w.desktop.moveDesktop(anySpace(w, r), r.below(4)); }); }},
      {"enters full screen", 2, enterFullScreen},
      {"leaves full screen", 3, removeFullScreenSpace},
      {"plugs a display in", 1, addDisplay},
      {"unplugs a display", 1,
       [](World& w, Random& r) { changeList(w, [&] { w.desktop.removeDisplay(anyDisplay(w, r)); }); }},
      {"turns to a display", 2, [](World& w, Random& r) { w.desktop.giveKeyboardTo(anyDisplay(w, r)); }},
      {"a change is reported again", 3, [](World& w, Random&) { w.desktop.reportActiveSpaceChange(); }},
      {"sleeps", 1, [](World& w, Random& r) { w.desktop.sleepFor(r.upTo(2h)); }},
      {"changes the screens", 1, changeScreens},
      {"turns to a screen", 1, moveFocus},
      {"taps are disabled", 1, [](World& w, Random&) { w.desktop.events().disableTaps(TapDisabling::ByTimeout); }},
      {"something goes wrong", 3, changeFault},
      {"nothing is wrong any more", 2, [](World& w, Random&) { w.desktop.faults = {}; }},
      {"the window server breaks", 1, [](World& w, Random&) { w.breaksWindowServer(); }},
      {"the window server recovers", 3, [](World& w, Random&) { w.mendsWindowServer(); }},
  };
  return acts;
}

}  // namespace roomlattice::tests
