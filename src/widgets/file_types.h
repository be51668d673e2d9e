// What the file dialogs call the kinds of files.
#pragma once

#include <QFileIconProvider>
#include <QString>

/// Names the program's own files by their suffix; of any other file the toolkit says what it is. It
/// is asked in a thread of the dialog's and must outlive the dialog.
class FileTypes : public QFileIconProvider {
 public:
  /// Looks the names up once, for the language that is in use.
  FileTypes();

  QString type(const QFileInfo& file) const override;

 private:
  QString page_;
  QString schedule_;
  QString scrolling_;
};
