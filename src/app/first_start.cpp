#include "app/first_start.h"

#include <QDir>

#include "language/module_language.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateMessage;

void TellLayOutFailure(QWidget* launcher, const Brivon1::LayOutFailure& failure) {
  if (failure.result == Brivon1::SaveResult::kSaved) return;
  const QString remedy =
      TranslateMessage(
          u"Brivon keeps its files in %1. Make sure that it can write there, then start it again."_s)
          .arg(QDir::toNativeSeparators(Brivon1::ProgramFolder()));
  MessageBoxStyle style;
  style.informative = QDir::toNativeSeparators(failure.path) + u": "_s +
                      TranslateMessage(failure.reason) + u'\n' + remedy;
  ShowMessageBeside(launcher, TranslateMessage(Brivon1::SaveFailureText(failure.result)), style);
}
