#pragma once

#include "platform/View.h"

#include <QAbstractButton>

namespace roomlattice::platform::x11 {

/// A borderless button that shows a symbol.
class SymbolButton final : public QAbstractButton {
 public:
  explicit SymbolButton(QWidget* parent);

  void show(const ButtonElement& element);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::string symbol_;
};

}  // namespace roomlattice::platform::x11
