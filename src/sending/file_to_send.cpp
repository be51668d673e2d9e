#include "sending/file_to_send.h"

#include <QLabel>
#include <QPushButton>

#include "language/module_language.h"
#include "widgets/file_dialogs.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateMessage;

FileToSend::FileToSend(QWidget* window, const Kind& kind, const Controls& controls,
                       const QString& path)
    : QObject(window), window_(window), kind_(kind), controls_(controls) {
  SetPath(path);
  ReadAgain();
  connect(controls_.browse, &QPushButton::clicked, this, &FileToSend::Browse);
}

void FileToSend::ReadAgain() {
  if (const auto dimension = kind_.check(path_)) SetDimension(*dimension);
}

void FileToSend::ReportNotFound() {
  ShowMessage(window_, TranslateMessage(u"File not found"_s) + kind_.send_end);
}

void FileToSend::ReportWrongKind() {
  ShowMessage(window_, TranslateMessage(u"Error in opening file"_s) + kind_.browse_end);
}

void FileToSend::Browse() {
  const QString path =
      ShowFileDialog(window_, u"Browse"_s, kind_.filter, 1, {kind_.dialog_name, kind_.browse_end});
  if (path.isEmpty()) return;
  if (const auto dimension = kind_.check(path)) {
    SetPath(path);
    SetDimension(*dimension);
  } else {
    ReportWrongKind();
  }
}

void FileToSend::SetPath(const QString& path) {
  path_ = path;
  controls_.path->setText(path);
}

void FileToSend::SetDimension(Brivon1::Dimension dimension) {
  dimension_ = dimension;
  if (controls_.rows == nullptr) return;
  controls_.rows->setText(QString::number(dimension.rows));
  controls_.columns->setText(QString::number(dimension.columns));
}
