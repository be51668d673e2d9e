// The list of the traffic. It follows what arrives unless its reader has gone back; its lines can
// be selected and copied.
#pragma once

#include <QTableView>

#include "window/traffic_model.h"

namespace VirtualPanel {

class TrafficTable : public QTableView {
  Q_OBJECT

 public:
  explicit TrafficTable(QWidget* parent = nullptr);

  void Add(const FrameRecord& record);

 private:
  void CopySelection();

  TrafficModel* model_;
};

}  // namespace VirtualPanel
