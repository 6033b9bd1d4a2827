#include "platform/x11/drawing/TextLine.h"

#include <QPainter>
#include <QTextBoundaryFinder>
#include <QTextOption>
#include <algorithm>
#include <iterator>
#include <vector>

namespace roomlattice::platform::x11 {
namespace {

constexpr char16_t ellipsis = u'\u2026';

/// A text with blanks around it.
struct Padded {
  explicit Padded(const QString& text) : core(text.trimmed()) {
    const auto leading = std::max<qsizetype>(text.indexOf(core), 0);
    before = text.left(leading);
    after = text.mid(leading + core.size());
  }

  QString core;
  QString before;
  QString after;
};

/// Where the text may be cut: after each of what its readers take for one character.
std::vector<qsizetype> endsOfCharacters(const QString& text) {
  std::vector<qsizetype> ends{0};
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  for (qsizetype end = finder.toNextBoundary(); end > 0; end = finder.toNextBoundary()) {
    ends.push_back(end);
  }
  return ends;
}

/// The letters that are left may take another form once others are gone, and be wider than before: only the shaped text
/// tells.
QString shortenedTo(const QString& text, const QFont& font, double width) {
  Padded padded(text);
  if (TextLine(padded.before + padded.after, font).width() >= width) {
    padded.before.clear();
    padded.after.clear();
  }
  const auto cutAt = [&](qsizetype end) {
    return padded.before + padded.core.left(end).trimmed() + ellipsis + padded.after;
  };
  const std::vector<qsizetype> ends = endsOfCharacters(padded.core);
  const auto fits = [&](qsizetype end) { return TextLine(cutAt(end), font).width() <= width; };
  auto cut = std::partition_point(ends.begin(), std::prev(ends.end()), fits);
  while (cut != ends.begin() && !fits(*--cut)) {
  }
  return cutAt(*cut);
}

}  // namespace

TextLine::TextLine(const QString& text, const QFont& font) : layout_(text, font) {
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setWrapMode(QTextOption::NoWrap);
  option.setFlags(QTextOption::IncludeTrailingSpaces);
  option.setTextDirection(isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  layout_.setTextOption(option);
  layout_.beginLayout();
  layout_.createLine();
  layout_.endLayout();
}

TextLine TextLine::fitted(const QString& text, const QFont& font, double width) {
  // Frames are sums of measured widths; a difference in the last digits must not cost a letter.
  constexpr double tolerance = 0.01;
  const bool fits = TextLine(text, font).width() <= width + tolerance;
  return {fits ? text : shortenedTo(text, font, width), font};
}

double TextLine::width() const {
  return layout_.lineAt(0).naturalTextWidth();
}

bool TextLine::isRightToLeft() const {
  return layout_.text().isRightToLeft();
}

void TextLine::draw(QPainter& painter, const QPointF& origin) const {
  layout_.draw(&painter, origin - QPointF(0.0, layout_.lineAt(0).ascent()));
}

}  // namespace roomlattice::platform::x11
