#include "platform/linux/tray/StatusNotifierItem.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace roomlattice::platform::linux {
namespace {

constexpr const char* itemPath = "/StatusNotifierItem";
constexpr const char* itemInterface = "org.kde.StatusNotifierItem";

using Pictures = std::vector<std::tuple<std::int32_t, std::int32_t, std::vector<std::uint8_t>>>;

Pictures arguments(std::vector<TrayPicture> pictures) {
  Pictures result;
  for (TrayPicture& picture : pictures) {
    result.emplace_back(picture.width, picture.height, std::move(picture.pixels));
  }
  return result;
}

/// A name of its own for every item of the process, as the protocol has it.
std::string nextName() {
  static int count = 0;
  return "org.kde.StatusNotifierItem-" + std::to_string(getpid()) + "-" + std::to_string(++count);
}

BusMethod placeMethod(std::string name, std::function<void(std::int32_t, std::int32_t)> run) {
  return {std::move(name), "ii", "", [run = std::move(run)](const BusMessage& call, BusWriter&) {
            run(call.argument<std::int32_t>(0).value_or(0), call.argument<std::int32_t>(1).value_or(0));
            return std::nullopt;
          }};
}

BusProperty constant(std::string name, std::string text) {
  return busProperty(std::move(name), [text = std::move(text)] { return text; });
}

}  // namespace

StatusNotifierItem::StatusNotifierItem(MessageBus& bus, TrayWatch& watch, TrayHandlers handlers,
                                       const std::optional<ObjectPath>& menu)
    : traits_(watch.traits()),
      handlers_(std::move(handlers)),
      object_(bus, itemPath, interface(menu)),
      name_(bus, nextName()) {
  const auto present = [this, &watch] {
    if (watch.state() == TrayWatch::State::Present) {
      watch.registerItem(name_.name());
    }
  };
  present();
  watcherChanges_ = watch.observe(present);
}

void StatusNotifierItem::setTexts(const TrayTexts& texts) {
  const TrayTexts before = std::exchange(texts_, texts);
  if (texts.title != before.title) {
    object_.emit("NewTitle");
    object_.emit("NewToolTip");
  }
  if (texts.label != before.label && !traits_.keepsWidePictures) {
    object_.emit("XAyatanaNewLabel", [&](BusWriter& writer) {
      writer.write(texts.label);
      writer.write("");
    });
  }
}

void StatusNotifierItem::picturesChanged() {
  object_.emit("NewIcon");
}

BusInterface StatusNotifierItem::interface(const std::optional<ObjectPath>& menu) {
  BusInterface result{
      .name = itemInterface,
      .methods = methods(),
      .properties = properties(),
      .signalTypes = {
          {"NewTitle", ""}, {"NewToolTip", ""}, {"NewIcon", ""}, {"NewStatus", "s"}, {"XAyatanaNewLabel", "ss"}}};
  if (!traits_.keepsWidePictures) {
    result.properties.push_back(busProperty("XAyatanaLabel", [this] { return texts_.label; }));
    result.properties.push_back(constant("XAyatanaLabelGuide", ""));
  }
  if (menu) {
    result.properties.push_back(busProperty("Menu", [path = *menu] { return path; }));
  }
  return result;
}

void StatusNotifierItem::scrollBy(std::int32_t amount) {
  // Some hosts count steps of the wheel, and others eighths of a degree, of which a step has 120.
  constexpr std::int32_t step = 120;
  constexpr std::int32_t mostSteps = 10;
  const std::int32_t bounded = std::clamp(amount, -mostSteps * step, mostSteps * step);
  const std::int32_t forward = traits_.countsScrollingDown ? bounded : -bounded;
  scrolled_ += std::abs(forward) <= mostSteps ? forward * step : forward;
  for (; scrolled_ >= step; scrolled_ -= step) {
    handlers_.scroll(ScrollStep::Forward);
  }
  for (; scrolled_ <= -step; scrolled_ += step) {
    handlers_.scroll(ScrollStep::Back);
  }
}

std::vector<BusMethod> StatusNotifierItem::methods() {
  const auto scroll = [this](const BusMessage& call, BusWriter&) -> std::optional<BusError> {
    scrollBy(call.argument<std::int32_t>(0).value_or(0));
    return std::nullopt;
  };
  return {placeMethod("Activate", [this](auto x, auto y) { handlers_.activate(x, y); }),
          placeMethod("SecondaryActivate", [this](auto x, auto y) { handlers_.activate(x, y); }),
          placeMethod("ContextMenu", [this](auto x, auto y) { handlers_.openContextMenu(x, y); }),
          {"Scroll", "is", "", scroll}};
}

std::vector<BusProperty> StatusNotifierItem::properties() const {
  const auto toolTip = [this] { return std::tuple(std::string(), Pictures(), texts_.title, std::string()); };
  return {constant("Category", "ApplicationStatus"), constant("Id", "roomlattice"), constant("Status", "Active"),
          // Some hosts complain about each that is missing.
          constant("IconName", ""), constant("IconThemePath", ""), constant("OverlayIconName", ""),
          constant("AttentionIconName", ""), constant("AttentionMovieName", ""),
          busProperty("OverlayIconPixmap", [] { return Pictures(); }),
          busProperty("AttentionIconPixmap", [] { return Pictures(); }),
          busProperty("WindowId", [] { return std::int32_t{0}; }), busProperty("ItemIsMenu", [] { return false; }),
          busProperty("Title", [this] { return texts_.title; }),
          busProperty("IconPixmap", [this] { return arguments(handlers_.pictures()); }),
          busProperty("ToolTip", toolTip)};
}

}  // namespace roomlattice::platform::linux
