#include "widgets/edited_file.h"

#include <utility>

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "language/file_remedies.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "widgets/kept_place.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateText;

namespace {

/// The one file that is dragged, of which a copy may be made; empty for whatever else is dragged.
QString DraggedFile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  if (urls.size() != 1 || !urls.first().isLocalFile()) return {};
  if (!event.possibleActions().testFlag(Qt::CopyAction)) return {};
  const QString path = QDir::toNativeSeparators(urls.first().toLocalFile());
  return QFileInfo(path).isFile() ? path : QString();
}

bool IsBehindADialog(const QWidget* window) {
  const QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr && modal != window;
}

}  // namespace

EditedFile::EditedFile(QWidget* window, const Labels& labels, Brivon1::ModifiedFlag& modified,
                       Editor editor)
    : QObject(window),
      window_(window),
      labels_(labels),
      modified_(modified),
      editor_(std::move(editor)) {
  labels_.not_saved->setText(TranslateText(u"not saved"_s));
  KeepPlaceWhenHidden(labels_.not_saved);
  ShowNotSaved(IsModified());
  modified_.Tell([this](bool is_modified) { ShowNotSaved(is_modified); });
  window_->setAcceptDrops(true);
  window_->installEventFilter(this);
  // They would take a file's name for text.
  for (QLineEdit* box : window_->findChildren<QLineEdit*>()) box->installEventFilter(this);
}

void EditedFile::SetPath(const QString& path) {
  path_ = path;
  was_refused_ = false;
  is_new_ = false;
  labels_.name->setText(path);
}

void EditedFile::BeginNew(const QString& path) {
  SetPath(path);
  is_new_ = true;
}

void EditedFile::SetRefusedPath(const QString& path) {
  SetPath(path);
  was_refused_ = true;
}

void EditedFile::ShowNotSaved(bool not_saved) const {
  labels_.not_saved->setVisible(not_saved);
  labels_.name->setAccessibleDescription(not_saved ? labels_.not_saved->text() : QString());
}

QString EditedFile::WhatYesDoes() const {
  if (was_refused_) {
    return TranslateText(u"You will be asked for another name: \"%1\" was not opened."_s)
        .arg(path_);
  }
  if (editor_.is_complete && !editor_.is_complete()) return path_;
  const QString where = TranslateText(u"It will be saved as \"%1\"."_s).arg(path_);
  if (!is_new_ || !QFileInfo::exists(path_)) return where;
  return where + u'\n' + TranslateText(u"An older file of this name will be replaced."_s);
}

bool EditedFile::MayLeave(const Write& write) {
  if (!modified_) return true;
  switch (AskToSave(window_, WhatYesDoes())) {
    case SaveAnswer::kYes:
      if (!WriteUnderShownName(write)) return false;
      if (editor_.after_yes == AfterYes::kSaved) modified_ = false;
      ShowNotSaved(false);
      return true;
    case SaveAnswer::kNo:
      return true;
    case SaveAnswer::kCancel:
      return false;
  }
  return false;
}

void EditedFile::Open() {
  if (!MayLeave()) return;
  const QString path = editor_.ask_what_to_open();
  if (!path.isEmpty()) editor_.open(path);
}

bool EditedFile::eventFilter(QObject* object, QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      break;
    default:
      return QObject::eventFilter(object, event);
  }
  auto* drop = static_cast<QDropEvent*>(event);
  const QString path = DraggedFile(*drop);
  if (path.isEmpty() && object != window_) return false;
  if (path.isEmpty() || IsBehindADialog(window_)) {
    drop->ignore();
    return true;
  }
  drop->setDropAction(Qt::CopyAction);
  drop->accept();
  if (event->type() == QEvent::Drop) {
    // Where the file comes from waits until the drop is over, which a question would put off.
    QMetaObject::invokeMethod(
        this, [this, path] { OpenDropped(path); }, Qt::QueuedConnection);
  }
  return true;
}

void EditedFile::OpenDropped(const QString& path) {
  if (IsBehindADialog(window_)) return;
  window_->raise();
  window_->activateWindow();
  if (MayLeave()) editor_.open(path);
}

bool EditedFile::Save() {
  if (!WriteUnderShownName(editor_.write)) return false;
  modified_ = false;
  return true;
}

bool EditedFile::SaveAs() {
  if (!WriteUnderNewName(editor_.write)) return false;
  modified_ = false;
  return true;
}

bool EditedFile::WriteUnderShownName(const Write& write) {
  if (was_refused_) return WriteUnderNewName(write);
  if (!write(path_)) return false;
  is_new_ = false;
  return true;
}

bool EditedFile::WriteUnderNewName(const Write& write) {
  const QString path = editor_.ask_for_name();
  if (path.isEmpty() || !write(path)) return false;
  SetPath(path);
  return true;
}

bool ReportSave(QWidget* window, const QString& path, Brivon1::SaveResult result,
                const QString& reason) {
  if (result == Brivon1::SaveResult::kSaved) return true;
  ShowRefusal(window, {ModuleLanguage::TranslateMessage(Brivon1::SaveFailureText(result)),
                       Brivon1::SaveRemedy(path, result, reason)});
  return false;
}
