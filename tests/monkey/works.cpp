#include "monkey/works.h"

#include <algorithm>

#include <QComboBox>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QLineEdit>

#include "base/code_page.h"
#include "page/frmMsgEditor.h"
#include "page/message_file.h"
#include "row/row_surface.h"
#include "schedule/frmSchedule.h"
#include "schedule/schedule_file.h"
#include "schedule/sequence_table.h"
#include "scrolling/frmShiftMsg.h"
#include "scrolling/scrolling_file.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char kEnd = '\0';

template <typename Control>
const Control* Part(const QWidget& window, const QString& name) {
  return window.findChild<const Control*>(name);
}

QByteArray RowText(const Brivon1::PageRow& row) {
  return row.Text() + kEnd + row.Size() + kEnd + row.Colour() + kEnd + row.Blink() + kEnd;
}

QByteArray PageWork(Brivon1::Dimension dimension, const QList<Brivon1::PageRow>& rows) {
  QByteArray work = "page " + QByteArray::number(dimension.rows) + 'x' +
                    QByteArray::number(dimension.columns) + kEnd;
  for (int row = 0; row < dimension.rows; ++row) work += RowText(rows[row]);
  return work;
}

QByteArray PageIn(const QWidget& editor) {
  QList<Brivon1::PageRow> rows;
  for (int row = 1; row <= Brivon1::kMaxRows; ++row) {
    rows.append(Part<RowSurface>(editor, u"Picture1(%1)"_s.arg(row))->Row());
  }
  const auto number = [&](const QString& label) {
    return static_cast<qint16>(Part<QLabel>(editor, label)->text().toInt());
  };
  return PageWork({number(u"lblRow"_s), number(u"lblCol"_s)}, rows);
}

QByteArray TableText(const SequenceTable& table) {
  QByteArray text;
  const QAbstractItemModel& model = *table.model();
  for (int row = 0; row < model.rowCount(); ++row) {
    text += table.PathAt(row + 1).toUtf8() + kEnd;
    for (int column = 0; column < model.columnCount(); ++column) {
      text += model.index(row, column).data().toString().toUtf8() + kEnd;
    }
  }
  return text;
}

QByteArray ScheduleWork(int weekday, const QString& hour, const QString& minute,
                        const SequenceTable& table) {
  return "schedule " + QByteArray::number(weekday) + kEnd + hour.toUtf8() + kEnd + minute.toUtf8() +
         kEnd + TableText(table);
}

QByteArray BlankSchedule() {
  SequenceTable table;
  table.ShowSequences({}, 1);
  return ScheduleWork(0, QLatin1String(Brivon1::kEveryTime), QLatin1String(Brivon1::kEveryTime),
                      table);
}

QByteArray ScheduleIn(const QWidget& editor) {
  return ScheduleWork(Part<QComboBox>(editor, u"comboWeek"_s)->currentIndex(),
                      Part<QLineEdit>(editor, u"txtHour"_s)->text(),
                      Part<QLineEdit>(editor, u"txtMin"_s)->text(),
                      *editor.findChild<const SequenceTable*>());
}

}  // namespace

QByteArray WorkIn(const QWidget& editor) {
  if (qobject_cast<const frmMsgEditor*>(&editor) != nullptr) return PageIn(editor);
  if (qobject_cast<const frmSchedule*>(&editor) != nullptr) return ScheduleIn(editor);
  if (qobject_cast<const frmShiftMsg*>(&editor) != nullptr) {
    return "scrolling " + RowText(Part<RowSurface>(editor, u"Picture1"_s)->Row());
  }
  return {};
}

bool IsBlank(const QByteArray& work) {
  if (work.startsWith("schedule ")) {
    return work == BlankSchedule() || work == QByteArray("schedule -1") + kEnd + kEnd + kEnd;
  }
  const qsizetype from = work.startsWith("page ") ? work.indexOf(kEnd) : 10;
  return std::all_of(work.begin() + from, work.end(), [](char c) { return c == kEnd; });
}

QByteArray WorkOf(const QString& path) {
  if (const auto page = Brivon1::LoadMessageFile(path)) {
    return PageWork(page->dimension, {page->rows.begin(), page->rows.end()});
  }
  if (const auto row = Brivon1::ReadScrollingMessage(path)) return "scrolling " + RowText(*row);
  const auto schedule = Brivon1::LoadScheduleFile(path);
  if (!schedule) return {};
  SequenceTable table;
  table.LookBy([](const QString&) { return true; });
  table.ShowSequences(*schedule, 1);
  const Brivon1::CodePage& code_page = Brivon1::CodePage::System();
  return ScheduleWork(schedule->weekday, code_page.ToText(schedule->hour),
                      code_page.ToText(schedule->minute), table);
}

bool ComesBack(const QByteArray& work) { return !work.contains('<'); }

QString NameOfFile(const QWidget& editor) {
  const auto* label = Part<QLabel>(editor, u"lblFileName"_s);
  if (label == nullptr) label = Part<QLabel>(editor, u"lblfilename"_s);
  return label == nullptr ? QString() : QDir::cleanPath(label->text());
}

QStringList Folder::Look() {
  std::map<QString, QByteArray> found;
  QDirIterator files(path_, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile file(files.next());
    if (file.open(QIODevice::ReadOnly)) found[file.fileName()] = file.readAll();
  }
  QStringList changed;
  for (const auto& [path, bytes] : found) {
    const auto before = files_.find(path);
    if (before != files_.end() && before->second == bytes) continue;
    changed.append(path);
    works_[path] = WorkOf(path);
    saved_.erase(path);
  }
  for (const auto& [path, bytes] : files_) {
    if (found.find(path) != found.end()) continue;
    changed.append(path);
    works_.erase(path);
    saved_.erase(path);
  }
  files_ = std::move(found);
  return changed;
}

bool Folder::Holds(const QByteArray& work) const {
  const auto is_it = [&](const auto& file) { return file.second == work; };
  return std::any_of(works_.begin(), works_.end(), is_it) ||
         std::any_of(saved_.begin(), saved_.end(), is_it);
}
