#include "tests/scenarios/ProgramRules.h"

#include "platform/simulated/SimulatedStatusItem.h"
#include "platform/simulated/TextMetrics.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"
#include "tests/support/ShownWindows.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <map>
#include <set>
#include <vector>

namespace roomlattice::tests {
namespace {

using namespace std::chrono_literals;
using platform::CollectionBehavior;
using platform::Rect;
using platform::Size;
using platform::SpaceID;
using platform::simulated::SimulatedWindow;
using platform::simulated::Space;
using platform::simulated::WindowWrites;

constexpr auto ordinary = static_cast<CollectionBehavior>(324);
constexpr auto inFrontOfAll = static_cast<CollectionBehavior>(72);

std::string named(const char* rule, SpaceID space) {
  return std::string(rule) + " (space " + std::to_string(space) + ")";
}

SpaceID spaceOf(const SimulatedWindow& label) {
  return label.spaces().empty() ? 0 : *label.spaces().begin();
}

SpaceID modelsActive() {
  return SpaceManager::shared().activeSpaceID();
}

BrokenRule onlyOneLabelPerDesktop(ScenarioWorld& world) {
  std::set<SpaceID> labelled;
  for (const SimulatedWindow* label : labelsOf(world.desktop)) {
    if (label->spaces().size() > 1) {
      return named("A label is on two desktops", spaceOf(*label));
    }
    for (const SpaceID space : label->spaces()) {
      if (!labelled.insert(space).second) {
        return named("A desktop has two labels", space);
      }
    }
  }
  return {};
}

BrokenRule noLabelOfAVanishedDesktop(ScenarioWorld& world) {
  if (world.listUnreported || world.windowServerBroken) {
    return {};
  }
  for (const SimulatedWindow* label : labelsOf(world.desktop)) {
    if (!world.desktop.spaces().find(spaceOf(*label))) {
      return named("A label is left of a desktop that is gone", spaceOf(*label));
    }
  }
  return {};
}

BrokenRule modelIsUpToDate(ScenarioWorld& world) {
  if (world.listUnreported || world.windowServerBroken) {
    return {};
  }
  const auto same = [](const SpaceInfo& known, const Space& space) {
    return known.spaceID == space.id && known.uuid == space.uuid && known.type == space.type;
  };
  if (!std::ranges::equal(SpaceManager::shared().spaces(), world.desktop.spaces().all(), same)) {
    return "The model has another list than the window server";
  }
  return modelsActive() == world.desktop.activeSpace() ? BrokenRule()
                                                       : "The model has another active desktop than the window server";
}

BrokenRule activeDesktopHasItsLabel(ScenarioWorld& world) {
  const SpaceInfo* const active = SpaceManager::shared().activeSpace();
  const bool expected = active != nullptr && active->isRegular() && !world.listUnreported &&
                        !world.windowServerBroken && !world.activeLabelMayBeMissing;
  return expected && labelOn(world.desktop, active->spaceID) == nullptr
             ? named("The active desktop has no label", active->spaceID)
             : BrokenRule();
}

Rect expectedFrame(const Rect& screen, const std::string& text) {
  const platform::Font font{.size = PreferencesStore::shared().signTextSize(), .weight = platform::FontWeight::Heavy};
  const Size measured = platform::simulated::measureText(text, font);
  const Size size{std::min(measured.width + 160.0, screen.size.width * 0.9),
                  std::min(measured.height + 120.0, screen.size.height * 0.6)};
  return {{screen.midX() - size.width * 0.5, screen.midY() - size.height * 0.5}, size};
}

BrokenRule labelsShowTheirNames(ScenarioWorld& world) {
  const SpaceManager& manager = SpaceManager::shared();
  const Rect screen = world.desktop.settings().main().value_or(world.desktop.settings().screens.front()).frame;
  for (const SimulatedWindow* label : labelsOf(world.desktop)) {
    const auto space = std::ranges::find(manager.spaces(), spaceOf(*label), &SpaceInfo::spaceID);
    if (space == manager.spaces().end()) {
      continue;
    }
    const std::string name = manager.displayName(*space);
    if (label->texts() != std::vector{name}) {
      return named("A label shows another name", space->spaceID);
    }
    if (label->contentView()->frame() != Rect{{}, label->frame().size}) {
      return named("A label does not fill its window", space->spaceID);
    }
    if (!world.framesStale && label->frame() != expectedFrame(screen, name)) {
      return named("A label has another frame", space->spaceID);
    }
  }
  return {};
}

BrokenRule onlyTheLabelInFrontStepsAside(ScenarioWorld& world) {
  for (const SimulatedWindow* label : labelsOf(world.desktop)) {
    if (label->collectionBehavior() == ordinary) {
      continue;
    }
    if (label->collectionBehavior() != inFrontOfAll || (spaceOf(*label) != modelsActive() && !world.listUnreported)) {
      return named("A label has another behaviour", spaceOf(*label));
    }
    if (!world.lastAtCorner || world.desktop.now() > *world.lastAtCorner + 15s) {
      return named("All labels are shown for too long", spaceOf(*label));
    }
  }
  return {};
}

BrokenRule toursStartAndEnd(ScenarioWorld& world) {
  const ScenarioWorld::Tour& tour = world.tour;
  const platform::Duration now = world.desktop.now();
  if (tour.started > 1 || tour.ended > tour.started) {
    return "There was more than one tour or end of a tour";
  }
  if (tour.isRunning() && now >= tour.startedAt + 20s) {
    return "A tour goes on after twenty seconds";
  }
  const std::size_t overlays = tourOverlaysOf(world.desktop).size();
  const bool fading = tour.ended > 0 && now < tour.endedAt + 250ms;
  if (overlays != (tour.isRunning() || fading ? 1U : 0U)) {
    return "There are " + std::to_string(overlays) + " overlays";
  }
  return {};
}

BrokenRule labelsAreHiddenWhileTouring(ScenarioWorld& world) {
  const bool undisturbed = !world.lastAtCorner || *world.lastAtCorner + 500ms < world.tour.startedAt;
  if (!world.tour.isRunning() || !undisturbed) {
    return {};
  }
  for (const SimulatedWindow* label : labelsOf(world.desktop)) {
    if (label->alpha() != 0.0) {
      return named("A label is visible during the tour", spaceOf(*label));
    }
  }
  return {};
}

BrokenRule statusItemShowsTheActiveDesktop(ScenarioWorld& world) {
  if (world.desktop.statusItem() == nullptr) {
    return "There is no status item";
  }
  if (!PreferencesStore::shared().showSpaceNameInMenuBar()) {
    return {};
  }
  const SpaceInfo* const active = SpaceManager::shared().activeSpace();
  const std::string expected = active == nullptr ? "Desktops" : " " + SpaceManager::shared().displayName(*active) + " ";
  const std::string& title = world.desktop.statusItem()->content().title.text;
  return title == expected ? BrokenRule() : "The status item shows " + title + " for " + expected;
}

/// True unless it is certain that not all labels are shown.
bool mayShowAll(ScenarioWorld& world) {
  const auto labels = labelsOf(world.desktop);
  if (std::ranges::any_of(labels, [](const auto* label) { return label->collectionBehavior() == inFrontOfAll; })) {
    return true;
  }
  // Only the label in front tells, and there may be none.
  return labelOn(world.desktop, modelsActive()) == nullptr && world.lastAtCorner &&
         world.desktop.now() <= *world.lastAtCorner + 16s;
}

BrokenRule labelsArePrimed(ScenarioWorld& world) {
  const PreferencesStore& preferences = PreferencesStore::shared();
  const bool swipeMode = preferences.showSignInSwipeMode();
  const double expected = swipeMode ? preferences.signSwipeAlpha() : 0.0;
  for (const SimulatedWindow* label : labelsOf(world.desktop)) {
    const bool concerned = !swipeMode || spaceOf(*label) != modelsActive();
    // What fades to nothing need not be cut short.
    const bool fades = label->isAnimating() && expected != 0.0;
    if (concerned && (label->alpha() != expected || fades)) {
      return named("A label is not primed", spaceOf(*label));
    }
  }
  return {};
}

std::map<SimulatedWindow*, WindowWrites> writesTo(const std::vector<SimulatedWindow*>& windows) {
  std::map<SimulatedWindow*, WindowWrites> writes;
  for (SimulatedWindow* window : windows) {
    writes.emplace(window, window->writes());
  }
  return writes;
}

void lettingGo(ScenarioWorld& world) {
  world.desktop.faults = {};
  world.mendsWindowServer();
  world.desktop.wake();
  const Rect screen = world.desktop.settings().screens.front().frame;
  // Twice, as the first click may only close a menu that is open there.
  world.user.clicks({screen.maxX() - 1.0, screen.minY()});
  world.movesPointerTo({screen.maxX() - 1.0, screen.minY()});
}

}  // namespace

BrokenRule brokenNow(ScenarioWorld& world) {
  if (!world.isRunning()) {
    return {};
  }
  for (const auto rule : {onlyOneLabelPerDesktop, noLabelOfAVanishedDesktop, modelIsUpToDate, activeDesktopHasItsLabel,
                          labelsShowTheirNames, onlyTheLabelInFrontStepsAside, toursStartAndEnd,
                          labelsAreHiddenWhileTouring, statusItemShowsTheActiveDesktop}) {
    if (BrokenRule broken = rule(world)) {
      return broken;
    }
  }
  return {};
}

BrokenRule brokenAtNextTick(ScenarioWorld& world) {
  world.desktop.advance(world.untilNextTick() - 1ns);
  if (!world.isRunning()) {
    return {};
  }
  const bool wasTouring = world.tour.isRunning();
  const SimulatedWindow* const front = labelOn(world.desktop, modelsActive());
  const int writes = front == nullptr ? 0 : front->writes().alpha;
  world.desktop.advance(1ns);
  const bool swipeMode = PreferencesStore::shared().showSignInSwipeMode();
  const bool touring = wasTouring || world.tour.isRunning();
  if (swipeMode && !touring && front != nullptr && front->writes().alpha != writes) {
    return named("The label in front was touched by priming", spaceOf(*front));
  }
  return swipeMode && (touring || mayShowAll(world)) ? BrokenRule() : labelsArePrimed(world);
}

BrokenRule brokenAtRest(ScenarioWorld& world) {
  lettingGo(world);
  world.desktop.advance(22s);
  if (!world.isRunning()) {
    return {};
  }
  if (world.tour.isRunning()) {
    return "A tour has not ended";
  }
  const auto labels = labelsOf(world.desktop);
  if (std::ranges::any_of(labels, [](const auto* label) { return label->collectionBehavior() != ordinary; })) {
    return "All labels are still shown";
  }
  if (std::ranges::any_of(labels, &SimulatedWindow::isAnimating)) {
    return "A label still fades";
  }
  if (BrokenRule broken = labelsArePrimed(world)) {
    return broken;
  }
  if (const std::size_t pending = world.platform().dispatcher().pendingTasks(); pending != 1) {
    return "There are " + std::to_string(pending) + " tasks queued besides or instead of the priming timer";
  }
  const auto writes = writesTo(labels);
  world.desktop.advance(10s);
  return writesTo(labelsOf(world.desktop)) == writes ? BrokenRule() : "A label is written to at rest";
}

BrokenRule brokenByLeftovers(ScenarioWorld& world) {
  world.user.swipes(platform::Direction::Right);
  world.desktop.advance(30s);
  // A fading overlay may outlive its owner for as long as it fades.
  if (!world.desktop.windows().overlays().empty()) {
    return "A window outlives the program";
  }
  return world.desktop.statusItem() == nullptr ? BrokenRule() : "The status item outlives the program";
}

}  // namespace roomlattice::tests
