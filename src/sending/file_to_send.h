// The file that a dialog is to send: handed over by an editor or chosen with the dialog's Browse
// button, and shown with its rows and columns where it has some.
#pragma once

#include <optional>

#include <QObject>
#include <QString>

#include "base/dimension.h"
#include "language/file_remedies.h"

class QLabel;
class QPushButton;
class QWidget;

class FileToSend : public QObject {
  Q_OBJECT

 public:
  /// What the dialogs differ in.
  struct Kind {
    QString filter;  ///< As ShowFileDialog() takes it; its first entry is in force.
    /// The dimension that a file of this kind was made for, 0 x 0 where the kind has none; nothing
    /// for any other file.
    std::optional<Brivon1::Dimension> (*check)(const QString& path);
    Brivon1::FileSort sort;
    QString browse_end;   ///< What follows the messages about a file that was chosen.
    QString dialog_name;  ///< The object name of the file dialog.
  };

  struct Controls {
    QPushButton* browse;
    QLabel* path;
    QLabel* rows = nullptr;  ///< Null, as the columns, for a kind without a dimension.
    QLabel* columns = nullptr;
  };

  /// `path` is the file handed over; it may be empty.
  FileToSend(QWidget* window, const Kind& kind, const Controls& controls, const QString& path);

  QString Path() const { return path_; }

  /// The rows and columns that the file had when it was last read; nothing when there was none.
  std::optional<Brivon1::Dimension> Dimension() const { return dimension_; }

  /// Shows the rows and columns that the file has now; nothing changes nothing.
  void SetDimension(std::optional<Brivon1::Dimension> dimension);

 private:
  void Browse();
  void SetPath(const QString& path);

  QWidget* window_;
  Kind kind_;
  Controls controls_;
  QString path_;
  std::optional<Brivon1::Dimension> dimension_;
};
