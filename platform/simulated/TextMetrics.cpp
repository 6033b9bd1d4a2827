#include "platform/simulated/TextMetrics.h"

#include <algorithm>
#include <variant>

namespace roomlattice::platform::simulated {
namespace {

constexpr double lineHeight = 1.25;
constexpr Font systemFont{.size = systemFontPoints};

bool startsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

double advance(const Font& font) {
  if (font.family == FontFamily::MonospacedSystem) {
    return 0.625;
  }
  switch (font.weight) {
    case FontWeight::Regular:
      return 0.5;
    case FontWeight::Medium:
      return 0.53125;
    case FontWeight::Semibold:
      return 0.5625;
    case FontWeight::Heavy:
      return 0.625;
  }
  return 0.5;
}

Size padded(Size size, double width, double height) {
  return {size.width + width, size.height + height};
}

/// A word that is too long for a line stands on one of its own.
Size measureWrapped(std::string_view text, const Font& font, double width) {
  std::string_view rest = text;
  Size size;
  while (!rest.empty()) {
    std::size_t end = rest.find(' ');
    for (std::size_t next = end; next != std::string_view::npos; next = rest.find(' ', next + 1)) {
      if (measureText(rest.substr(0, next), font).width <= width) {
        end = next;
      }
    }
    if (measureText(rest, font).width <= width) {
      end = std::string_view::npos;
    }
    const Size line = measureText(rest.substr(0, end), font);
    size = {std::max(size.width, line.width), size.height + line.height};
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
  }
  return size;
}

struct Measuring {
  Size operator()(const LabelControl& label) const {
    return label.wrapWidth ? measureWrapped(label.text, label.font, *label.wrapWidth)
                           : measureText(label.text, label.font);
  }
  Size operator()(const SliderControl&) const { return {96.0, 20.0}; }
  Size operator()(const CheckBoxControl& box) const { return padded(measureText(box.title, systemFont), 20.0, 2.0); }
  Size operator()(const PopUpControl& popUp) const {
    Size widest = measureText({}, systemFont);
    for (const std::string& item : popUp.items) {
      widest.width = std::max(widest.width, measureText(item, systemFont).width);
    }
    return padded(widest, 40.0, 8.0);
  }
  Size operator()(const ColorWellControl&) const { return {44.0, 24.0}; }
  Size operator()(const PushButtonControl& button) const {
    return padded(measureText(button.title, systemFont), 32.0, 8.0);
  }
  Size operator()(const SelectableTextControl& field) const {
    return padded(measureText(field.text, field.font), 8.0, 6.0);
  }
};

}  // namespace

Size measureText(std::string_view text, const Font& font) {
  const auto characters = static_cast<double>(std::ranges::count_if(text, startsCharacter));
  return {characters * advance(font) * font.size, lineHeight * font.size};
}

Size intrinsicSizeOf(const Control& control) {
  return std::visit(Measuring(), control);
}

std::size_t startOfLastCharacter(std::string_view text) {
  const auto found = std::find_if(text.rbegin(), text.rend(), startsCharacter);
  return found == text.rend() ? 0 : static_cast<std::size_t>(text.rend() - found) - 1;
}

}  // namespace roomlattice::platform::simulated
