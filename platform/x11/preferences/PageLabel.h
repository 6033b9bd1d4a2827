#pragma once

#include "platform/Controls.h"

#include <QLabel>

namespace roomlattice::platform::x11 {

/// A label of a page, with a form in the dimmer colour of secondary text. Unlike its base it cuts no text that can be
/// kept: lines break within a word that is wider than the label. Where it is to be one line, that is drawn narrower as
/// far as it can be read easily, and only then cut at its end; the whole text is its tool tip then.
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
