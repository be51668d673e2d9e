#include "app/first_start.h"

#include <QDir>

#include "base/file_lock.h"
#include "language/module_language.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateMessage;

void TellLayOutFailure(QWidget* launcher, const Brivon1::LayOutFailure& failure) {
  if (failure.result == Brivon1::SaveResult::kSaved) return;
  const QString remedy =
      failure.result == Brivon1::SaveResult::kLocked
          ? TranslateMessage(
                u"Start Brivon again. If no other program is saving it, delete %1 first."_s)
                .arg(Brivon1::FileLock(failure.path).Path())
          : TranslateMessage(
                u"Brivon keeps its files in %1. Make sure that it can write there, then start it again."_s)
                .arg(QDir::toNativeSeparators(Brivon1::ProgramFolder()));
  MessageBoxStyle style;
  style.informative = QDir::toNativeSeparators(failure.path) + u": "_s +
                      TranslateMessage(failure.reason) + u'\n' + remedy;
  ShowMessageBeside(launcher, TranslateMessage(Brivon1::SaveFailureText(failure.result)), style);
}
