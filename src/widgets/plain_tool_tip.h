// Tool tips of texts that are not the program's own, such as file names and translated captions.
#pragma once

#include <QString>

class QHelpEvent;
class QWidget;

/// Shows `text` as the tool tip of `widget` where the help was asked for, letter by letter: nothing
/// in it is taken for markup.
void ShowPlainToolTip(const QHelpEvent& event, const QString& text, QWidget* widget);
