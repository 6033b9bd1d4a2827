#pragma once

#include "platform/Controls.h"

#include <QLabel>

namespace roomlattice::platform::x11 {

/// A label of a page, in the colour of ordinary text or in the dimmer one of secondary text. Unlike its base it keeps
/// text from being cut. Text of several lines breaks even within a word that is wider than the label. Text of one line
/// is drawn narrower, as far as it can be read easily; what still does not fit is cut at the end, and the tool tip is
/// the whole text then.
class PageLabel final : public QLabel {
 public:
  explicit PageLabel(const LabelControl& label);

  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QTextOption textOption() const;
  /// How wide the text is drawn, where 1 is its own width.
  double stretch() const;
  bool isCut() const;

  std::optional<double> wrapWidth_;
  SystemColor color_;
};

}  // namespace roomlattice::platform::x11
