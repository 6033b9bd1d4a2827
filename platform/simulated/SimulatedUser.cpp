#include "platform/simulated/SimulatedUser.h"

#include "platform/simulated/SimulatedStatusItem.h"
#include "platform/simulated/SimulatedTabbedWindow.h"
#include "platform/simulated/TextMetrics.h"
#include "support/Fatal.h"
#include "support/FieldEvent.h"

#include <algorithm>
#include <memory>
#include <variant>
#include <vector>

namespace roomlattice::platform::simulated {
namespace {

// EventField::Kind of other input: public numbers of Quartz event services.
constexpr std::int64_t mouseMoved = 5;
constexpr std::int64_t keyDown = 10;

constexpr Duration swipePace = std::chrono::milliseconds(8);

FieldEvent inputEvent(std::int64_t type) {
  FieldEvent event;
  event.setInteger(EventField::Kind, type);
  return event;
}

FieldEvent swipeEvent(DockSwipe::Phase phase, SwipeMotion motion) {
  FieldEvent event;
  DockSwipe{.phase = phase, .progress = motion.progress, .velocity = motion.velocity}.write(event);
  return event;
}

Point middle(const Rect& rect) {
  return {rect.midX(), rect.midY()};
}

Rect buttonFrame(const View& view) {
  for (const ViewElement& element : view.content().elements) {
    if (std::holds_alternative<ButtonElement>(element.kind) && !element.hidden) {
      return element.frame;
    }
  }
  fatal("the row shows no button");
}

}  // namespace

void SimulatedUser::swipes(Direction direction) {
  constexpr int moves = 4;
  const double sign = signOf(direction);
  const auto later = [&desktop = desktop_](int step, DockSwipe::Phase phase, SwipeMotion motion) {
    desktop.after(swipePace * step, [&desktop, phase, motion] { desktop.events().pass(swipeEvent(phase, motion)); });
  };
  movesFingers(DockSwipe::Began, {.progress = sign * 0.01, .velocity = sign * 0.5});
  for (int move = 1; move <= moves; ++move) {
    later(move, DockSwipe::Changed, {.progress = sign * move / moves, .velocity = sign * 1.5});
  }
  later(moves + 1, DockSwipe::Ended, {.progress = sign, .velocity = sign * 1.5});
}

void SimulatedUser::movesFingers(DockSwipe::Phase phase, SwipeMotion motion) {
  desktop_.events().pass(swipeEvent(phase, motion));
}

void SimulatedUser::movesPointerTo(Point point) {
  desktop_.events().setPointer(point);
  desktop_.events().pass(inputEvent(mouseMoved));
  if (const auto session = desktop_.menu()) {
    session->pointerMoved(point);
  }
  InputListener* const listener = desktop_.events().listener();
  if (listener != nullptr && !desktop_.programTakesMouseAt(point)) {
    listener->pointerMovedElsewhere();
  }
}

void SimulatedUser::clicks(Point point) {
  movesPointerTo(point);
  const auto& items = desktop_.statusBar().items();
  const auto item = std::ranges::find_if(
      items, [point](const SimulatedStatusItem* candidate) { return candidate->frame().contains(point); });
  if (item != items.end()) {
    (*item)->click();
  } else if (const auto session = desktop_.menu()) {
    session->click(point);
  }
}

void SimulatedUser::clicksStatusItem() {
  SimulatedStatusItem* const item = desktop_.statusItem();
  if (item == nullptr) {
    fatal("there is no status item to click");
  }
  clicks(middle(item->frame()));
}

void SimulatedUser::entersRow(std::size_t row) {
  movesPointerTo(middle(menu().rowFrame(row)));
}

void SimulatedUser::leavesMenu() {
  const Rect frame = menu().frame();
  movesPointerTo({frame.midX(), frame.minY() - 50.0});
}

void SimulatedUser::clicksRow(std::size_t row) {
  clicks(middle(menu().rowFrame(row)));
}

void SimulatedUser::clicksRow(std::size_t row, Point inView) {
  const Rect frame = menu().rowFrame(row);
  clicks({frame.minX() + inView.x, frame.minY() + inView.y});
}

void SimulatedUser::clicksRowButton(std::size_t row) {
  entersRow(row);
  const View* const view = menu().view(row);
  if (view == nullptr) {
    fatal("the row has no view");
  }
  clicksRow(row, middle(buttonFrame(*view)));
}

void SimulatedUser::clicksCommand(std::string_view title) {
  const std::vector<std::string> titles = menu().titles();
  const auto found = std::ranges::find(titles, title);
  if (found == titles.end()) {
    fatal("the menu has no such command");
  }
  clicksRow(static_cast<std::size_t>(found - titles.begin()));
}

void SimulatedUser::pressesKey(std::uint16_t keyCode) {
  presses(SimulatedKeyEvent(keyCode));
}

void SimulatedUser::pressesCommandKey(const std::string& key) {
  presses(SimulatedKeyEvent(simulatedKeyCode::text, key, KeyModifier::Command));
}

void SimulatedUser::types(std::string_view text) {
  std::vector<std::string> characters;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t last = startOfLastCharacter(rest);
    characters.emplace_back(rest.substr(last));
    rest = rest.substr(0, last);
  }
  std::ranges::reverse(characters);
  for (const std::string& character : characters) {
    presses(SimulatedKeyEvent(simulatedKeyCode::text, character));
  }
}

void SimulatedUser::presses(const SimulatedKeyEvent& event) {
  desktop_.events().pass(inputEvent(keyDown));
  InputListener* const listener = desktop_.events().listener();
  if (listener == nullptr || !desktop_.programHasKeyboard()) {
    return;
  }
  const auto session = desktop_.menu();
  if (listener->keyPressed(event) == KeyDisposition::PassOn && session != nullptr) {
    session->keyDown(event);
  }
}

void SimulatedUser::slides(std::string_view slider, double value) {
  window().slide(control(slider), value);
}

void SimulatedUser::clicksCheckBox(std::string_view checkBox) {
  window().toggle(control(checkBox));
}

void SimulatedUser::chooses(std::string_view popUp, std::string_view item) {
  const ControlReference reference = control(popUp);
  const std::vector<std::string>& items = window().control<PopUpControl>(reference).items;
  const auto found = std::ranges::find(items, item);
  if (found == items.end()) {
    fatal("the pop-up has no such item");
  }
  window().choose(reference, static_cast<int>(found - items.begin()));
}

void SimulatedUser::picksColor(std::string_view colorWell, const Color& color) {
  window().pickColor(control(colorWell), color);
}

void SimulatedUser::pushes(std::string_view button) {
  window().push(control(button));
}

void SimulatedUser::closesWindow() {
  window().close();
}

MenuSession& SimulatedUser::menu() const {
  const auto session = desktop_.menu();
  if (session == nullptr) {
    fatal("no menu is open");
  }
  return *session;
}

SimulatedTabbedWindow& SimulatedUser::window() const {
  SimulatedTabbedWindow* const window = desktop_.tabbedWindow();
  if (window == nullptr || !window->isVisible()) {
    fatal("no tabbed window is open");
  }
  return *window;
}

ControlReference SimulatedUser::control(std::string_view name) const {
  const std::optional<ControlReference> found = window().find(name);
  if (!found) {
    fatal("the window has no such control");
  }
  return *found;
}

}  // namespace roomlattice::platform::simulated
