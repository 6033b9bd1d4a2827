#include "platform/x11/statusitem/MenuTyping.h"

namespace roomlattice::platform::x11 {
namespace {

bool hasWordBeginningWith(const QString& name, const QString& text) {
  for (qsizetype at = name.indexOf(text, 0, Qt::CaseInsensitive); at >= 0;
       at = name.indexOf(text, at + 1, Qt::CaseInsensitive)) {
    if (at == 0 || !name.at(at - 1).isLetterOrNumber()) {
      return true;
    }
  }
  return false;
}

std::optional<int> find(const QString& text, const QStringList& names, int first) {
  const auto count = static_cast<int>(names.size());
  for (int step = 0; step < count; ++step) {
    const int index = (first + step) % count;
    if (hasWordBeginningWith(names.at(index), text)) {
      return index;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<MenuTyping::Row> MenuTyping::digit(int digit, int rows) {
  text_.clear();
  const int longer = number_ * 10 + digit;
  number_ = longer <= rows ? longer : digit;
  if (number_ == 0 || number_ > rows) {
    number_ = 0;
    return std::nullopt;
  }
  return Row{.index = number_ - 1, .isCertain = number_ * 10 > rows};
}

std::optional<int> MenuTyping::letter(QChar letter, const QStringList& names, std::optional<int> current) {
  number_ = 0;
  const QString longer = text_ + letter;
  if (const std::optional<int> found = text_.isEmpty() ? std::nullopt : find(longer, names, current.value_or(0))) {
    text_ = longer;
    return found;
  }
  text_ = letter;
  return find(text_, names, current ? *current + 1 : 0);
}

void MenuTyping::startAgain() {
  number_ = 0;
  text_.clear();
}

}  // namespace roomlattice::platform::x11
