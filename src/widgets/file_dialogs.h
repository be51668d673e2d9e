// The file dialogs of all windows: the toolkit's own on every desktop, starting in the program's
// folder.
#pragma once

#include <QString>

class QWidget;

/// What differs between the dialogs to open a file.
struct OpenDialogStyle {
  QString name = QStringLiteral("CMDialog1");   ///< The dialog's object name.
  QString not_found_end = QStringLiteral("!");  ///< What follows the message "File not found".
};

/// Lets the operator choose a file to open. `title` is looked up here; `filter` holds pairs of
/// description and pattern, all separated by "|" ("All|*.*|Message File|*.msg"), and entry
/// `preselected` of it, counted from 1, is in force. Any name may be entered; one that is no file
/// gives the message "File not found". Returns the full path; empty when nothing was chosen.
QString ShowFileDialog(QWidget* window, const QString& title, const QString& filter,
                       int preselected, const OpenDialogStyle& style = {});

/// Lets the operator choose the name to save under, exactly as entered and without a question about
/// an existing file. A path longer than 100 characters gives the message "Invalid path!". Returns
/// the full path; empty when nothing was chosen.
QString ShowSaveDialog(QWidget* window, const QString& title, const QString& filter,
                       int preselected);
