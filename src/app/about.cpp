#include "app/about.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QWidget>

#include "language/further_texts.h"
#include "store/program_folder.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateText;

namespace {

QString FolderLine() {
  return TranslateText(u"Program folder: %1"_s)
      .arg(QDir::toNativeSeparators(Brivon1::ProgramFolder()));
}

void ShowAbout(QWidget* launcher) {
  MessageBoxStyle style;
  style.title = TranslateText(u"About"_s);
  style.informative =
      FolderLine() + u'\n' +
      TranslateText(u"Brivon is under the MIT license, the toolkit Qt %1 under the GNU LGPL 3."_s)
          .arg(QLatin1String(qVersion()));
  ShowMessageBeside(launcher, u"Brivon "_s + QCoreApplication::applicationVersion(), style);
}

}  // namespace

void TellAboutProgram(QWidget* launcher) {
  launcher->setToolTip(FolderLine());
  auto* about = new QAction(TranslateText(u"About"_s), launcher);
  QObject::connect(about, &QAction::triggered, launcher, [launcher] { ShowAbout(launcher); });
  launcher->addAction(about);
  launcher->setContextMenuPolicy(Qt::ActionsContextMenu);
}
