// The message boxes of all windows. Each belongs to its window, blocks it, and shows a text that
// the caller has looked up.
#pragma once

#include <QMessageBox>
#include <QString>

#include "base/refusal.h"

class QWidget;

/// How a message box looks. The defaults are the plain box: no icon, the window's caption as title.
struct MessageBoxStyle {
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QString title;        ///< Empty: the window's caption.
  QString informative;  ///< A line below the text that says more; empty: none.
};

/// Shows `text` with one OK button and returns when it was pressed.
void ShowMessage(QWidget* window, const QString& text, const MessageBoxStyle& style = {});

/// Shows why something is not done, and below it what to do about it.
void ShowRefusal(QWidget* window, const Brivon1::Refusal& refusal, MessageBoxStyle style = {});
/// The same, but returns at once: whatever the window is doing goes on beneath the box.
void ShowMessageBeside(QWidget* window, const QString& text, const MessageBoxStyle& style = {});

enum class SaveAnswer { kYes, kNo, kCancel };

/// Asks whether unsaved work is to be saved, and says in `informative` below what "Yes" does;
/// Escape and the close box mean Cancel, and so does a second question of the same window for one
/// that is still open.
SaveAnswer AskToSave(QWidget* window, const QString& informative = {});
