#include "widgets/file_types.h"

#include <QFileInfo>

#include "language/module_language.h"

using namespace Qt::StringLiterals;

using ModuleLanguage::TranslateMessage;

FileTypes::FileTypes()
    : page_(TranslateMessage(u"Brivon page"_s)),
      schedule_(TranslateMessage(u"Brivon schedule"_s)),
      scrolling_(TranslateMessage(u"Brivon scrolling message"_s)) {}

QString FileTypes::type(const QFileInfo& file) const {
  const QString suffix = file.isDir() ? QString() : file.suffix().toLower();
  if (suffix == "msg"_L1) return page_;
  if (suffix == "sch"_L1) return schedule_;
  if (suffix == "srl"_L1) return scrolling_;
  return QFileIconProvider::type(file);
}
