#pragma once

#include "platform/View.h"

#include <string>
#include <utility>

namespace roomlattice::tests {

inline constexpr platform::Rect plateWindowFrame{{200.0, 300.0}, {400.0, 120.0}};

/// A plate with a name and a spinner, as large as such a window.
class PlateView final : public platform::View {
 public:
  PlateView() { setFrame({{}, plateWindowFrame.size}); }

  platform::ViewContent content() const override {
    return {.background = platform::Color::black().withAlpha(0.78),
            .cornerRadius = 40.0,
            .elements = {{.frame = {{50.0, 40.0}, {300.0, 40.0}},
                          .kind = platform::TextElement{.text = text_,
                                                        .font = {.size = 30.0, .weight = platform::FontWeight::Heavy},
                                                        .color = platform::Color::white(),
                                                        .alignment = platform::TextAlignment::Center}},
                         {.frame = {{10.0, 10.0}, {24.0, 24.0}}, .kind = platform::SpinnerElement{}}}};
  }

  void setText(std::string text) {
    text_ = std::move(text);
    contentChanged();
  }

 private:
  std::string text_ = "Mail";
};

}  // namespace roomlattice::tests
