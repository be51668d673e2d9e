// The last frames that went over the lines, as a table: time, frame, answer, meaning.
#pragma once

#include <QAbstractTableModel>
#include <QByteArray>
#include <QList>
#include <QStringList>

#include "engine/traffic_record.h"

namespace VirtualPanel {

// Bytes as a reader can see them, in the code page: "<CR>", "<LF>", other control characters and
// undefined bytes as "<07>", a long text cut.
QString VisibleText(const QByteArray& bytes);

class TrafficModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kTimeColumn, kFrameColumn, kAnswerColumn, kMeaningColumn, kColumns };

  static constexpr int kMostLines = 500;

  using QAbstractTableModel::QAbstractTableModel;

  // Adds a line at the end; the first one goes when there are too many.
  void Add(const FrameRecord& record);
  // A line as it is copied: its columns with tabs between.
  QString Line(int row) const { return lines_[row].join(QLatin1Char('\t')); }

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  QList<QStringList> lines_;  // of each the texts of its columns
};

}  // namespace VirtualPanel
