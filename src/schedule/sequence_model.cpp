#include "schedule/sequence_model.h"

#include <QFont>
#include <QPalette>
#include <QWidget>

#include "base/code_page.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "schedule/schedule_file.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

SequenceModel::SequenceModel(QWidget* table)
    : QAbstractTableModel(table),
      table_(*table),
      headings_{QString(), u"Message File"_s, u"Delay"_s, u"Feature"_s},
      end_(ModuleLanguage::TranslateText(u"End"_s)) {}

void SequenceModel::Show(const QList<Brivon1::Sequence>& sequences) {
  const auto before = static_cast<int>(sequences_.size());
  const auto now = static_cast<int>(sequences.size());
  if (now > before) {
    beginInsertRows({}, before, now - 1);
    sequences_.append(sequences.sliced(before));
    endInsertRows();
  } else if (now < before) {
    beginRemoveRows({}, now, before - 1);
    sequences_.resize(now);
    endRemoveRows();
  }
  sequences_ = sequences;
  const QStringList paths = Paths();
  missing_.intersect({paths.begin(), paths.end()});
  Q_EMIT dataChanged(index(0, 0), index(now, kColumns - 1));
}

QString SequenceModel::PathIn(int row) const {
  const QString name = Text(row, kFile);
  return name.isEmpty() ? QString() : Brivon1::InProgramFolder(name);
}

QStringList SequenceModel::Paths() const {
  QStringList paths;
  for (int row = 0; row < sequences_.size(); ++row) {
    const QString path = PathIn(row);
    if (!path.isEmpty() && !paths.contains(path)) paths.append(path);
  }
  return paths;
}

void SequenceModel::NoteFile(const QString& path, bool is_there) {
  if (missing_.contains(path) != is_there) return;  // as it was known
  if (is_there) {
    missing_.remove(path);
  } else {
    missing_.insert(path);
  }
  Q_EMIT dataChanged(index(0, kFile), index(rowCount() - 1, kFile));
}

int SequenceModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(sequences_.size()) + 1;
}

int SequenceModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QString SequenceModel::Text(int row, int column) const {
  if (row == sequences_.size()) return column == kNumber ? end_ : QString();
  const Brivon1::Sequence& sequence = sequences_[row];
  switch (column) {
    case kNumber:
      return QString::number(row + 1);
    case kFile:
      return Brivon1::FieldPath(sequence.path);
    case kDelay:
      return QString::number(sequence.delay);
    default:
      return Brivon1::CodePage::System().ToText(sequence.feature).trimmed();
  }
}

bool SequenceModel::IsMissing(const QModelIndex& index) const {
  return index.column() == kFile && missing_.contains(PathIn(index.row()));
}

QVariant SequenceModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  switch (role) {
    case Qt::DisplayRole:
      return Text(index.row(), index.column());
    case Qt::TextAlignmentRole:
      if (index.column() != kNumber && index.column() != kDelay) return {};
      return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
    case Qt::FontRole: {
      if (!IsMissing(index)) return {};
      QFont font;
      font.setItalic(true);  // for those who do not see the grey
      return font;
    }
    case Qt::ForegroundRole:
      if (!IsMissing(index)) return {};
      return table_.palette().brush(QPalette::PlaceholderText);
    case Qt::AccessibleDescriptionRole:
      if (!IsMissing(index)) return {};
      return ModuleLanguage::TranslateMessage(u"File not found"_s);
    default:
      return {};
  }
}

QVariant SequenceModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) {
    return QAbstractTableModel::headerData(section, orientation, role);
  }
  return role == Qt::DisplayRole ? QVariant(headings_.value(section)) : QVariant();
}

bool SequenceModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant& value,
                                  int role) {
  const bool is_heading = section >= 0 && section < kColumns;
  if (orientation != Qt::Horizontal || !is_heading || role != Qt::EditRole) return false;
  headings_[section] = value.toString();
  Q_EMIT headerDataChanged(orientation, section, section);
  return true;
}
