#include "widgets/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QScreen>
#include <QStringList>
#include <QTreeView>

#include "base/files.h"
#include "language/file_remedies.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "store/configuration_store.h"
#include "widgets/file_types.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

namespace {

using ModuleLanguage::TranslateMessage;
using ModuleLanguage::TranslateText;

constexpr qsizetype kLongestPath = 100;

// In letters: beside the places and the other columns a long name can be read.
constexpr int kLettersAcross = 140;
constexpr int kLinesDown = 30;

constexpr QSize kFrame(16, 40);  // what a desktop puts around a window

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

// Gives size, type and date what they need, and the name all the rest.
void FitColumns(const QFileDialog& dialog) {
  auto* files = dialog.findChild<QTreeView*>(u"treeView"_s);
  if (files == nullptr) return;
  QHeaderView* header = files->header();
  header->setStretchLastSection(false);
  for (int column = 0; column < header->count(); ++column) {
    header->showSection(column);
    header->setSectionResizeMode(
        column, column == 0 ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
  }
}

QString RunDialog(QWidget* window, const QString& name, const QString& title, const QString& filter,
                  int preselected, QFileDialog::AcceptMode mode) {
  FileTypes types;
  QFileDialog dialog(window, TranslateMessage(title), Brivon1::ProgramFolder());
  dialog.setObjectName(name);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setAcceptMode(mode);
  dialog.setFileMode(QFileDialog::AnyFile);
  const QStringList filters = NameFilters(filter);
  dialog.setNameFilters(filters);
  dialog.selectNameFilter(filters.value(preselected - 1));
  dialog.setIconProvider(&types);
  dialog.setViewMode(QFileDialog::Detail);
  FitColumns(dialog);
  const QFontMetrics letters = dialog.fontMetrics();
  const QSize wanted(kLettersAcross * letters.averageCharWidth(), kLinesDown * letters.height());
  dialog.resize(
      dialog.size().expandedTo(wanted).boundedTo(dialog.screen()->availableSize() - kFrame));
  if (dialog.exec() != QDialog::Accepted) return {};
  return QDir::toNativeSeparators(dialog.selectedFiles().value(0));
}

}  // namespace

QString ShowFileDialog(QWidget* window, const QString& title, const QString& filter,
                       int preselected, const OpenDialogStyle& style) {
  const QString path =
      RunDialog(window, style.name, title, filter, preselected, QFileDialog::AcceptOpen);
  if (path.isEmpty() || Brivon1::FileExists(path)) return path;
  ShowRefusal(window, {TranslateMessage(u"File not found"_s) + style.not_found_end,
                       Brivon1::MissingFileRemedy(path)});
  return {};
}

QString ShowSaveDialog(QWidget* window, const QString& title, const QString& filter,
                       int preselected) {
  const QString path =
      RunDialog(window, u"CMDialog1"_s, title, filter, preselected, QFileDialog::AcceptSave);
  if (path.size() <= kLongestPath) return path;
  ShowRefusal(window, {TranslateMessage(u"Invalid path!"_s),
                       Brivon1::LongPathRemedy(path.size(), kLongestPath)});
  return {};
}
