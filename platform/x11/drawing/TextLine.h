#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>

class QPainter;
class QPointF;

namespace roomlattice::platform::x11 {

/// One line of text in the form it has on the screen: its letters joined as their script joins them, and in the order
/// in which they are read. What is measured is what is drawn.
class TextLine {
 public:
  TextLine(const QString& text, const QFont& font);

  /// `text`, or as much of it as fits into `width` with an ellipsis after it. Blanks at both ends stay where there is
  /// room for them.
  static TextLine fitted(const QString& text, const QFont& font, double width);

  QString text() const { return layout_.text(); }

  /// The advance, blanks at both ends included.
  double width() const;

  /// Whether the text as a whole is read from right to left, which its first letter decides.
  bool isRightToLeft() const;

  /// `origin` is where the baseline begins at the left.
  void draw(QPainter& painter, const QPointF& origin) const;

 private:
  QTextLayout layout_;
};

}  // namespace roomlattice::platform::x11
