#include "widgets/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QStringList>

#include "base/files.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "store/configuration_store.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

namespace {

using ModuleLanguage::TranslateMessage;
using ModuleLanguage::TranslateText;

constexpr qsizetype kLongestPath = 100;

QStringList NameFilters(const QString& filter) {
  const QStringList parts = filter.split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    // "*.*" means every file, also one without a point in its name.
    const QString pattern = parts[i + 1] == "*.*"_L1 ? u"*"_s : parts[i + 1];
    const QString shown = QLatin1Char('(') + pattern + QLatin1Char(')');
    const bool has_pattern = parts[i].endsWith(shown);
    const QString kind = has_pattern ? parts[i].chopped(shown.size()) : parts[i];
    filters.append(TranslateText(kind) + (has_pattern ? shown : QLatin1Char(' ') + shown));
  }
  return filters;
}

QString RunDialog(QWidget* window, const QString& name, const QString& title, const QString& filter,
                  int preselected, QFileDialog::AcceptMode mode) {
  QFileDialog dialog(window, TranslateMessage(title), Brivon1::ProgramFolder());
  dialog.setObjectName(name);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setAcceptMode(mode);
  dialog.setFileMode(QFileDialog::AnyFile);
  const QStringList filters = NameFilters(filter);
  dialog.setNameFilters(filters);
  dialog.selectNameFilter(filters.value(preselected - 1));
  if (dialog.exec() != QDialog::Accepted) return {};
  return QDir::toNativeSeparators(dialog.selectedFiles().value(0));
}

}  // namespace

QString ShowFileDialog(QWidget* window, const QString& title, const QString& filter,
                       int preselected, const OpenDialogStyle& style) {
  const QString path =
      RunDialog(window, style.name, title, filter, preselected, QFileDialog::AcceptOpen);
  if (path.isEmpty() || Brivon1::FileExists(path)) return path;
  ShowMessage(window, TranslateMessage(u"File not found"_s) + style.not_found_end);
  return {};
}

QString ShowSaveDialog(QWidget* window, const QString& title, const QString& filter,
                       int preselected) {
  const QString path =
      RunDialog(window, u"CMDialog1"_s, title, filter, preselected, QFileDialog::AcceptSave);
  if (path.size() <= kLongestPath) return path;
  ShowMessage(window, TranslateMessage(u"Invalid path!"_s));
  return {};
}
