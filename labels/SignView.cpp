#include "labels/SignView.h"

#include <algorithm>
#include <utility>

namespace roomlattice {
namespace {

constexpr double plateAlpha = 0.78;
constexpr double plateCornerRadius = 40.0;
constexpr double textMargin = 40.0;

}  // namespace

SignView::SignView(platform::Platform& platform, const PreferencesStore& preferences, std::string text)
    : platform_(platform), preferences_(preferences), text_(std::move(text)), font_(labelFont(preferences)) {
  preferencesObserver_ =
      platform.notifications().defaultCenter().observe(PreferencesStore::didChange, [this] { prefsChanged(); });
}

platform::Font SignView::labelFont(const PreferencesStore& preferences) {
  return {.size = preferences.signTextSize(), .weight = platform::FontWeight::Heavy};
}

void SignView::setText(const std::string& text) {
  if (text != text_) {
    text_ = text;
    contentChanged();
  }
}

void SignView::prefsChanged() {
  if (const platform::Font font = labelFont(preferences_); font != font_) {
    font_ = font;
    contentChanged();
  }
}

platform::Rect SignView::labelFrame() const {
  const platform::Size plate = frame().size;
  const platform::Size text = platform_.userInterface().measure(text_, font_);
  const double width = std::min(text.width, std::max(plate.width - 2 * textMargin, 0.0));
  return {{(plate.width - width) * 0.5, (plate.height - text.height) * 0.5}, {width, text.height}};
}

platform::ViewContent SignView::content() const {
  return {.background = platform::Color::black().withAlpha(plateAlpha),
          .cornerRadius = plateCornerRadius,
          .elements = {{.frame = labelFrame(),
                        .kind = platform::TextElement{.text = text_,
                                                      .font = font_,
                                                      .color = platform::Color::white(),
                                                      .alignment = platform::TextAlignment::Center}}}};
}

}  // namespace roomlattice
