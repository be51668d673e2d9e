// What the table of a schedule's sequences shows: a numbered row for each, with its message file,
// delay and feature, and a row "End" below them. A file that is missing on the disk stands in
// italics and grey.
#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include "schedule/schedule.h"

class QWidget;

class SequenceModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kNumber, kFile, kDelay, kFeature, kColumns };

  /// Missing files take their grey from the palette of `table`.
  explicit SequenceModel(QWidget* table);

  /// Shows these sequences. Rows come and go above "End", so that a view keeps its place.
  void Show(const QList<Brivon1::Sequence>& sequences);

  /// The full path of the message file in `row`, from 0; empty where it names none.
  QString PathIn(int row) const;

  /// The full paths of the message files, each once.
  QStringList Paths() const;

  /// Takes in whether there is a file at `path`, one of Paths(). Until then it counts as there.
  void NoteFile(const QString& path, bool is_there);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

  /// Gives a column another heading.
  bool setHeaderData(int section, Qt::Orientation orientation, const QVariant& value,
                     int role = Qt::EditRole) override;

 private:
  QString Text(int row, int column) const;
  bool IsMissing(const QModelIndex& index) const;

  const QWidget& table_;
  QStringList headings_;  // of all columns
  QString end_;           // stands in the last row
  QList<Brivon1::Sequence> sequences_;
  QSet<QString> missing_;  // the paths that were missing when they were looked for last
};
