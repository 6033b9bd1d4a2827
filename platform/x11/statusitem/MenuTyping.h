#pragma once

#include <QChar>
#include <QString>
#include <QStringList>
#include <optional>

namespace roomlattice::platform::x11 {

/// What somebody means who types in an open menu: digits are the number of a row, letters the beginning of a name, or
/// of a word in it. No time decides where a text ends.
class MenuTyping {
 public:
  struct Row {
    /// From 0.
    int index = 0;
    /// Whether no further digit could lead to another row.
    bool isCertain = false;

    bool operator==(const Row&) const = default;
  };

  /// The row of that number in a menu with so many; nothing where there is none.
  std::optional<Row> digit(int digit, int rows);

  /// The place of the next of the names that goes on as typed, from `current` onwards and round. A letter with which
  /// none goes on begins a new text; so the same letter again leads to the next name that begins with it.
  std::optional<int> letter(QChar letter, const QStringList& names, std::optional<int> current);

  /// What is typed next begins something new.
  void startAgain();

 private:
  int number_ = 0;
  QString text_;
};

}  // namespace roomlattice::platform::x11
