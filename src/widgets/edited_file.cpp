#include "widgets/edited_file.h"

#include <utility>

#include <QLabel>

#include "language/file_remedies.h"
#include "language/module_language.h"
#include "widgets/message_boxes.h"

EditedFile::EditedFile(QWidget* window, QLabel* label, bool& modified, Editor editor)
    : QObject(window),
      window_(window),
      label_(label),
      modified_(modified),
      editor_(std::move(editor)) {}

void EditedFile::SetPath(const QString& path) {
  path_ = path;
  was_refused_ = false;
  label_->setText(path);
}

void EditedFile::SetRefusedPath(const QString& path) {
  SetPath(path);
  was_refused_ = true;
}

bool EditedFile::MayLeave(const Write& write) {
  if (!modified_) return true;
  switch (AskToSave(window_)) {
    case SaveAnswer::kYes:
      if (!WriteUnderShownName(write)) return false;
      if (editor_.after_yes == AfterYes::kSaved) modified_ = false;
      return true;
    case SaveAnswer::kNo:
      return true;
    case SaveAnswer::kCancel:
      return false;
  }
  return false;
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
  return was_refused_ ? WriteUnderNewName(write) : write(path_);
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
