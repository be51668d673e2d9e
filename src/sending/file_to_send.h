// The file that a dialog is to send: handed over by an editor or chosen with the dialog's Browse
// button, and shown with its rows and columns.
#pragma once

#include <optional>

#include <QObject>
#include <QString>

#include "base/dimension.h"

class QLabel;
class QPushButton;
class QWidget;

class FileToSend : public QObject {
  Q_OBJECT

 public:
  /// What the dialogs differ in.
  struct Kind {
    QString filter;  ///< As ShowFileDialog() takes it; its first entry is in force.
    std::optional<Brivon1::Dimension> (*check)(const QString& path);
    QString message_end;  ///< What follows the messages about a file.
    QString dialog_name;  ///< The object name of the file dialog.
  };

  struct Controls {
    QPushButton* browse;
    QLabel* path;
    QLabel* rows;
    QLabel* columns;
  };

  /// `path` is the file handed over; it may be empty.
  FileToSend(QWidget* window, const Kind& kind, const Controls& controls, const QString& path);

  QString Path() const;

  /// The rows and columns as they stand on the labels; 0 where a label is empty.
  Brivon1::Dimension ShownDimension() const;

  /// Shows the rows and columns that the file has now. They stay where it is no such file any more.
  void ReadAgain();

  /// Shows the message about a path that is no file, and about a file of another kind.
  void ReportNotFound();
  void ReportWrongKind();

 private:
  void Browse();
  void Show(const QString& path, Brivon1::Dimension dimension);

  QWidget* window_;
  Kind kind_;
  Controls controls_;
};
