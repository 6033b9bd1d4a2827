#include "benchmarks/desktop/SwitchMeter.h"

#include "platform/x11/connection/Properties.h"
#include "support/Fatal.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <thread>
#include <xcb/damage.h>

namespace roomlattice::benchmarks {
namespace {

using namespace std::chrono_literals;
using platform::Registration;
using platform::x11::readNumber;
using platform::x11::replyTo;
using platform::x11::X11Connection;

// What is drawn later has another cause.
constexpr std::chrono::milliseconds picturesEnd = 60ms;
// Longer than a label takes to fade out.
constexpr std::chrono::milliseconds fadesEnd = 800ms;

// DAMAGE: a bit of the level.
constexpr std::uint8_t moreFollows = 0x80;

double milliseconds(Clock::duration duration) {
  return std::chrono::duration<double, std::milli>(duration).count();
}

/// Tells of each drawing in a window.
class DamageWatch {
 public:
  DamageWatch(X11Connection& connection, xcb_window_t window, std::function<void()> drawn)
      : connection_(connection), damage_(xcb_generate_id(connection.raw())) {
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection.raw(), &xcb_damage_id);
    if (extension == nullptr || extension->present == 0) {
      fatal("the X server does not know DAMAGE");
    }
    replyTo(connection.raw(), xcb_damage_query_version(connection.raw(), 1, 1), xcb_damage_query_version_reply);
    events_ = connection.observe(static_cast<std::uint8_t>(extension->first_event + XCB_DAMAGE_NOTIFY),
                                 [drawn = std::move(drawn)](const xcb_generic_event_t& event) {
                                   const auto& notify = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
                                   // One drawing may be told as several rectangles.
                                   if ((notify.level & moreFollows) == 0) {
                                     drawn();
                                   }
                                 });
    xcb_damage_create(connection.raw(), damage_, window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    connection.waitForServer();
  }
  ~DamageWatch() { xcb_damage_destroy(connection_.raw(), damage_); }
  DamageWatch(const DamageWatch&) = delete;
  DamageWatch& operator=(const DamageWatch&) = delete;

 private:
  X11Connection& connection_;
  xcb_damage_damage_t damage_;
  Registration events_;
};

SwitchMeter::Fade fadeOf(const std::vector<double>& intervals) {
  double sum = 0.0;
  for (const double interval : intervals) {
    sum += interval;
  }
  const double usual = quantile(intervals, 0.5);
  std::vector<double> distances;
  std::ranges::transform(intervals, std::back_inserter(distances),
                         [usual](double interval) { return std::abs(interval - usual); });
  return {.stepsPerSecond = sum > 0.0 ? 1000.0 * static_cast<double>(intervals.size()) / sum : 0.0,
          .unevenness = quantile(distances, 0.95),
          .steps = intervals.size()};
}

}  // namespace

double quantile(std::vector<double> values, double fraction) {
  if (values.empty()) {
    return 0.0;
  }
  std::ranges::sort(values);
  return values[static_cast<std::size_t>(std::lround(fraction * static_cast<double>(values.size() - 1)))];
}

SwitchMeter::Pictures SwitchMeter::pictures(xcb_window_t window, int switches) {
  std::optional<Clock::time_point> last;
  int drawings = 0;
  const DamageWatch watch(screen_.connection(), window, [&] {
    last = Clock::now();
    ++drawings;
  });
  Pictures result;
  for (int i = 0; i < switches; ++i) {
    const std::uint32_t desktop = nextDesktop();
    screen_.connection().waitForServer();
    screen_.connection().deliverEvents();
    last.reset();
    drawings = 0;
    const auto start = Clock::now();
    screen_.switchTo(desktop);
    screen_.waitUntil(picturesEnd, [] { return false; });
    if (last) {
      result.milliseconds.push_back(milliseconds(*last - start));
    } else {
      ++result.missed;
    }
    result.drawings += static_cast<double>(drawings) / switches;
  }
  return result;
}

void SwitchMeter::visitAll() {
  for (std::uint32_t desktop = 0; desktop < screen_.desktopCount(); ++desktop) {
    screen_.switchTo(desktop);
    screen_.waitUntil(picturesEnd, [] { return false; });
  }
}

SwitchMeter::Cost SwitchMeter::cost(const ProcessFigures& program, const ProcessFigures& server, int switches,
                                    std::chrono::milliseconds pace) {
  const Cost before{program.processorTime(), server.processorTime()};
  auto next = Clock::now();
  for (int i = 0; i < switches; ++i) {
    screen_.switchTo(nextDesktop());
    std::this_thread::sleep_until(next += pace);
  }
  std::this_thread::sleep_for(fadesEnd);
  screen_.connection().deliverEvents();
  return {program.processorTime() - before.own, server.processorTime() - before.server};
}

SwitchMeter::Fade SwitchMeter::fade(pid_t process, int switches) {
  X11Connection& connection = screen_.connection();
  const xcb_atom_t opacity = connection.atom("_NET_WM_WINDOW_OPACITY");
  std::map<xcb_window_t, xcb_timestamp_t> lastSteps;
  std::vector<double> intervals;
  const Registration steps =
      connection.observe<xcb_property_notify_event_t>([&](const xcb_property_notify_event_t& change) {
        if (change.atom != opacity) {
          return;
        }
        const auto [last, isFirst] = lastSteps.try_emplace(change.window, change.time);
        if (!isFirst) {
          intervals.push_back(static_cast<double>(change.time - std::exchange(last->second, change.time)));
        }
      });
  for (const xcb_window_t window : screen_.managedWindows()) {
    if (readNumber(connection, window, connection.atom("_NET_WM_PID"), XCB_ATOM_CARDINAL) ==
        static_cast<std::uint32_t>(process)) {
      constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
      xcb_change_window_attributes(connection.raw(), window, XCB_CW_EVENT_MASK, &events);
    }
  }
  for (int i = 0; i < switches; ++i) {
    screen_.switchTo(nextDesktop());
    screen_.waitUntil(fadesEnd, [] { return false; });
    lastSteps.clear();
  }
  return fadeOf(intervals);
}

std::uint32_t SwitchMeter::nextDesktop() {
  // A linear congruence is chance enough, and the same everywhere.
  chance_ = chance_ * 1664525U + 1013904223U;
  const std::uint32_t count = screen_.desktopCount();
  if (count < 2) {
    fatal("there is only one desktop");
  }
  const std::uint32_t step = 1 + (chance_ >> 16U) % (count - 1);
  return (screen_.currentDesktop() + step) % count;
}

}  // namespace roomlattice::benchmarks
