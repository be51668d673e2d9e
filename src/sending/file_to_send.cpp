#include "sending/file_to_send.h"

#include <QLabel>
#include <QPushButton>

#include "sending/refusals.h"
#include "widgets/file_dialogs.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

FileToSend::FileToSend(QWidget* window, const Kind& kind, const Controls& controls,
                       const QString& path)
    : QObject(window), window_(window), kind_(kind), controls_(controls) {
  SetPath(path);
  SetDimension(kind_.check(path_));
  connect(controls_.browse, &QPushButton::clicked, this, &FileToSend::Browse);
}

void FileToSend::Browse() {
  const QString path =
      ShowFileDialog(window_, u"Browse"_s, kind_.filter, 1, {kind_.dialog_name, kind_.browse_end});
  if (path.isEmpty()) return;
  if (const auto dimension = kind_.check(path)) {
    SetPath(path);
    SetDimension(dimension);
  } else {
    ShowRefusal(window_, Brivon1::WrongKind(path, kind_.sort, kind_.browse_end));
  }
}

void FileToSend::SetPath(const QString& path) {
  path_ = path;
  controls_.path->setText(path);
}

void FileToSend::SetDimension(std::optional<Brivon1::Dimension> dimension) {
  if (!dimension) return;
  dimension_ = dimension;
  if (controls_.rows == nullptr) return;
  controls_.rows->setText(QString::number(dimension->rows));
  controls_.columns->setText(QString::number(dimension->columns));
}
