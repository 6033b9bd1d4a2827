#pragma once

#include <QString>

class QHelpEvent;
class QWidget;

namespace roomlattice::platform::x11 {

/// A tool tip that says `text` letter by letter: the toolkit would take some texts for HTML.
QString toolTipSaying(const QString& text);

/// Answers the toolkit's question for a tool tip with `text`, or with none where that is empty.
void answerToolTip(QWidget& widget, const QHelpEvent& question, const QString& text);

}  // namespace roomlattice::platform::x11
