#include "sending/file_to_send.h"

#include <QLabel>
#include <QPushButton>

#include "language/module_language.h"
#include "widgets/file_dialogs.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using Brivon1::Dimension;
using ModuleLanguage::TranslateMessage;

FileToSend::FileToSend(QWidget* window, const Kind& kind, const Controls& controls,
                       const QString& path)
    : QObject(window), window_(window), kind_(kind), controls_(controls) {
  controls_.path->setText(path);
  ReadAgain();
  connect(controls_.browse, &QPushButton::clicked, this, &FileToSend::Browse);
}

QString FileToSend::Path() const { return controls_.path->text(); }

Dimension FileToSend::ShownDimension() const {
  return {controls_.rows->text().toShort(), controls_.columns->text().toShort()};
}

void FileToSend::ReadAgain() {
  if (const auto dimension = kind_.check(Path())) Show(Path(), *dimension);
}

void FileToSend::ReportNotFound() {
  ShowMessage(window_, TranslateMessage(u"File not found"_s) + kind_.message_end);
}

void FileToSend::ReportWrongKind() {
  ShowMessage(window_, TranslateMessage(u"Error in opening file"_s) + kind_.message_end);
}

void FileToSend::Browse() {
  const QString path =
      ShowFileDialog(window_, u"Browse"_s, kind_.filter, 1, {kind_.dialog_name, kind_.message_end});
  if (path.isEmpty()) return;
  if (const auto dimension = kind_.check(path)) {
    Show(path, *dimension);
  } else {
    ReportWrongKind();
  }
}

void FileToSend::Show(const QString& path, Dimension dimension) {
  controls_.path->setText(path);
  controls_.rows->setText(QString::number(dimension.rows));
  controls_.columns->setText(QString::number(dimension.columns));
}
