#include "platform/x11/drawing/ToolTips.h"

#include <QHelpEvent>
#include <QToolTip>

namespace roomlattice::platform::x11 {

QString toolTipSaying(const QString& text) {
  return text.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

void answerToolTip(QWidget& widget, const QHelpEvent& question, const QString& text) {
  QToolTip::showText(question.globalPos(), toolTipSaying(text), &widget);
}

}  // namespace roomlattice::platform::x11
