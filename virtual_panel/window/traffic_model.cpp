#include "window/traffic_model.h"

#include <array>

#include "base/code_page.h"
#include "base/tool_tip_text.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr qsizetype kMostVisibleBytes = 2000;

// What is answered, and how long after the frame, unless it is at once.
QString AnswerText(const FrameRecord& record) {
  if (record.answer.isEmpty()) return u"-"_s;
  const QString answer = VisibleText(record.answer);
  if (record.answer_after_ms == 0) return answer;
  return answer + u" after %1 ms"_s.arg(record.answer_after_ms);
}

}  // namespace

QString VisibleText(const QByteArray& bytes) {
  const Brivon1::CodePage& code_page = Brivon1::CodePage::System();
  QString text;
  for (const char byte : bytes.first(qMin(bytes.size(), kMostVisibleBytes))) {
    if (byte == '\r') {
      text += "<CR>"_L1;
    } else if (byte == '\n') {
      text += "<LF>"_L1;
    } else if (!code_page.IsPrintable(byte)) {
      const auto value = static_cast<unsigned char>(byte);
      text += u"<%1>"_s.arg(QString::number(value, 16).toUpper(), 2, QLatin1Char('0'));
    } else {
      text += code_page.ToCharacter(byte);
    }
  }
  if (bytes.size() > kMostVisibleBytes) text += QChar(0x2026);
  return text;
}

void TrafficModel::Add(const FrameRecord& record) {
  if (lines_.size() >= kMostLines) {
    beginRemoveRows({}, 0, 0);
    lines_.removeFirst();
    endRemoveRows();
  }
  beginInsertRows({}, rowCount(), rowCount());
  lines_.append({
      record.time.toString(u"HH:mm:ss.zzz"_s),
      VisibleText(record.bytes),
      AnswerText(record),
      record.description,
  });
  endInsertRows();
}

int TrafficModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int TrafficModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant TrafficModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const QString& text = lines_[index.row()][index.column()];
  if (role == Qt::DisplayRole) return text;
  if (role == Qt::ToolTipRole) return Brivon1::ToolTipText(text, Brivon1::LongLines::kBroken);
  return {};
}

QVariant TrafficModel::headerData(int section, Qt::Orientation orientation, int role) const {
  static constexpr std::array<const char*, kColumns> kNames = {"Time", "Frame", "Answer",
                                                               "Meaning"};
  if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
    return QLatin1String(kNames[static_cast<std::size_t>(section)]);
  }
  return QAbstractTableModel::headerData(section, orientation, role);
}

}  // namespace VirtualPanel
