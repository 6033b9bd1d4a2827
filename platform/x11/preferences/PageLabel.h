#pragma once

#include "platform/Controls.h"

#include <QLabel>

namespace roomlattice::platform::x11 {

/// A label of a page. Unlike its base it breaks a word that is wider than the label, so that no text is ever cut, and
/// has a form in the dimmer colour of secondary text.
class PageLabel final : public QLabel {
 public:
  explicit PageLabel(const LabelControl& label);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QTextOption textOption() const;

  std::optional<double> wrapWidth_;
  SystemColor color_;
};

}  // namespace roomlattice::platform::x11
