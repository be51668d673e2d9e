// How what a reader does grows with what it is given: reads one shape of input of so many
// megabytes, once, so that its instructions can be counted from outside.
//
//   growth                 lists the shapes, each with the most kilobytes that are read of it, and
//                          why no more
//   growth SHAPE KILOBYTES reads one
//   growth all KILOBYTES   reads all of them
//
// The shapes are those that would be dear if anything were looked at twice.
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include <QCoreApplication>

#include "base/code_page.h"
#include "base/file_checks.h"
#include "engine/panel_engine.h"
#include "fuzz/files.h"
#include "fuzz/frames.h"
#include "language/module_language.h"
#include "page/message_file.h"
#include "page/message_transmission.h"
#include "panel_dots/panel_picture.h"
#include "schedule/schedule_file.h"
#include "schedule/schedule_transmission.h"
#include "scrolling/scrolling_file.h"
#include "scrolling/scrolling_transmission.h"
#include "store/ini_file.h"
#include "store/panel_list.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kKilobyte = 1000;
constexpr int kMegabyte = 1000;  // kilobytes

QByteArray Repeated(const char* piece, qsizetype size) {
  const QByteArray bytes(piece);
  return bytes.repeated(size / bytes.size());
}

// ---- readers ------------------------------------------------------------------------------------

void ReadIni(const QByteArray& content) {
  Brivon1::IniFile file(content);
  file.SetValue("a", "key", file.Value("a", "key").value_or("value"));
  file.RemoveKey("a", "k");
  file.SetValue("b", "k", "value");
  if (file.Content().isEmpty()) std::abort();
}

void ReadLanguage(const QByteArray& content) {
  Fuzz::WriteFile(u"langSetting.INI"_s, content);
  const ModuleLanguage::LanguageFile file;
  if (file.Value(u"a"_s, u"k"_s, QString()).size() > ModuleLanguage::kLongestValue) std::abort();
}

void ReadConfiguration(const QByteArray& content) {
  Fuzz::WriteFile(u"brivon.ini"_s, content);
  Brivon1::LoadConfiguration();
}

void ReadPanelLine(const QByteArray& line) {
  if (Brivon1::ReadPanelListLine(line).id > 255) std::abort();
  Brivon1::PanelListLine(1, Brivon1::ReadPanelEntry(line));
}

/// `text` as the rows of a page, the same length in each.
void ReadPage(const QByteArray& text) {
  QByteArray content = QByteArray(Brivon1::kMessageHeader) + "\r\nRow = 12\r\nCol = 3000\r\n";
  const qsizetype length = text.size() / Brivon1::kMaxRows;
  for (int row = 0; row < Brivon1::kMaxRows; ++row)
    content += text.mid(row * length, length) + '\n';
  const QString path = Fuzz::WriteFile(u"page.msg"_s, content);
  const auto page = Brivon1::LoadMessageFile(path);
  if (!page) std::abort();
  for (const qint16 colours : {Brivon1::kMono, Brivon1::kTri}) {
    if (!Brivon1::MessageFrames(path, 1, "001", page->dimension, colours)) std::abort();
  }
  Brivon1::PageMessage message;
  message.TakeOver(page->dimension, page->rows);
  Brivon1::SaveMessageFile(path, message);
}

void ReadScrolling(const QByteArray& text) {
  const QString path =
      Fuzz::WriteFile(u"text.srl"_s, QByteArray(Brivon1::kScrollingHeader) + '\n' + text + '\n');
  if (!Brivon1::ReadScrollingMessage(path)) std::abort();
  Fuzz::FramesOf(1, Brivon1::kMono, [&](Brivon1::OpenLine& line) {
    if (!Brivon1::SendScrollingFile(line, path, 1, 1)) std::abort();
  });
}

/// `text` as the paths and effects of a schedule, the same length in each.
void ReadSchedule(const QByteArray& text) {
  QByteArray content = QByteArray(Brivon1::kScheduleHeader) +
                       "\nWeek =0\nHour =**\nMin =**\nRow =1\nCol =96\nNo of Sequence =32\n";
  const qsizetype length = text.size() / (2 * Brivon1::kMostSequences);
  for (int at = 0; at < Brivon1::kMostSequences; ++at) {
    content += text.mid(2 * at * length, length) + "\n1\n" + text.mid(0, length) + '\n';
  }
  const QString path = Fuzz::WriteFile(u"week.sch"_s, content);
  if (!Brivon1::LoadScheduleFile(path)) std::abort();
  Brivon1::CheckScheduleFile(path, u"A"_s);
}

void ReadPanelText(const QByteArray& text) {
  PanelDots::PanelPicture picture{{1, 96, true}};
  picture.rows = {{1, PanelDots::ParseCells(text)}};
  picture.clock = QDateTime(QDate(2026, 3, 2), QTime(8, 30));
  if (PanelDots::DotsOf(picture, 0).Columns() != 96) std::abort();
  PanelDots::IsCut(picture, 1);
}

void ReadStream(const QByteArray& bytes, qsizetype piece) {
  VirtualPanel::PanelEngine engine({{1, 12, 96, true}});
  for (qsizetype at = 0; at < bytes.size(); at += piece) {
    engine.Receive(QByteArrayView(bytes).sliced(at, qMin(piece, bytes.size() - at)));
  }
}

void ReadStreamWhole(const QByteArray& bytes) { ReadStream(bytes, bytes.size()); }
void ReadStreamByByte(const QByteArray& bytes) { ReadStream(bytes, 1); }

void ReadPasted(const QByteArray& utf8) {
  const Brivon1::CodePage page(1258);
  const auto bytes = page.ToBytes(QString::fromUtf8(utf8));
  if (bytes && bytes->isEmpty()) std::abort();
}

// ---- shapes -------------------------------------------------------------------------------------

/// Lines that differ, so that nothing is found again.
QByteArray Numbered(const char* before, const char* behind, qsizetype size) {
  QByteArray bytes;
  bytes.reserve(size + 100);
  for (int number = 0; bytes.size() < size; ++number) {
    bytes += before + QByteArray::number(number) + behind;
  }
  return bytes;
}

/// How much is read of a shape, and why no more.
struct Limit {
  int most;  // megabytes
  const char* reason;
};

constexpr Limit kNoLimit{16, "more is not tried"};
constexpr Limit kIniLimit{4, "an INI file has at most 4 MiB"};
constexpr Limit kPageLimit{12, "a page has twelve lines of at most 1 MiB"};
constexpr Limit kLineLimit{1, "a line has at most 1 MiB"};

struct Shape {
  const char* name;
  void (*read)(const QByteArray& input);
  const char* before;  // once
  const char* piece;   // again and again; with a "#" its number
  Limit limit;
};

constexpr Shape kShapes[] = {
    {"ini:one-line", ReadIni, "[a]\nkey=", "x", kNoLimit},
    {"ini:line-ends", ReadIni, "[a]\n", "\n", kNoLimit},
    {"ini:open-brackets", ReadIni, "", "[", kNoLimit},
    {"ini:headings-alike", ReadIni, "", "[a]\n", kNoLimit},
    {"ini:headings", ReadIni, "", "[#]\n", kNoLimit},
    {"ini:keys-alike", ReadIni, "[a]\n", "k=1\n", kNoLimit},
    {"ini:keys", ReadIni, "[a]\n", "#=1\n", kNoLimit},
    {"configuration:keys", ReadConfiguration, "[Dimension Config]\n", "#=4x96\n", kIniLimit},
    {"configuration:one-value", ReadConfiguration, "[Dimension Config]\nID001=", ",", kIniLimit},
    {"language:one-value", ReadLanguage, "[a]\nk=", "\xC3\xA4", kIniLimit},
    {"panel-list:blanks", ReadPanelLine, "", " ", kNoLimit},
    {"panel-list:points", ReadPanelLine, "", ".", kNoLimit},
    {"page:codes", ReadPage, "", "<SA>", kPageLimit},
    {"page:changes", ReadPage, "", "<CA>a<CB>b", kPageLimit},
    {"page:open-brackets", ReadPage, "", "<", kPageLimit},
    {"page:half-codes", ReadPage, "", "<C", kPageLimit},
    {"page:symbols", ReadPage, "", "~", kPageLimit},
    {"page:placeholders", ReadPage, "", "HH:MM", kPageLimit},
    {"scrolling:half-codes", ReadScrolling, "", "<C", kLineLimit},
    {"scrolling:nested-codes", ReadScrolling, "", "<C<CA>A>", kLineLimit},
    {"scrolling:blanks", ReadScrolling, "", " ", kLineLimit},
    {"schedule:blanks", ReadSchedule, "", " ", kNoLimit},
    {"schedule:sharp-s", ReadSchedule, "", "\xDF", kNoLimit},
    {"pasted:marks", ReadPasted, "a", "\xCC\xA3", kNoLimit},
    {"pasted:letters", ReadPasted, "", "\xE1\xBA\xAD", kNoLimit},
    {"text:codes", ReadPanelText, "", "<SA>", kNoLimit},
    {"text:dates", ReadPanelText, "", "<DD>", kNoLimit},
    {"text:open-brackets", ReadPanelText, "", "<", kNoLimit},
    {"engine:no-line-end", ReadStreamWhole, "", "x", kNoLimit},
    {"engine:line-ends", ReadStreamWhole, "", "\r\n", kNoLimit},
    {"engine:polls", ReadStreamWhole, "", "<ID01><?>\r\n", kNoLimit},
    {"engine:rows", ReadStreamWhole, "", "<ID01><L01><P#>text \r\n", kNoLimit},
    {"engine:schedules", ReadStreamWhole, "", "<ID01><TA>*****00105A,00210B\r\n", kNoLimit},
    {"engine:byte-by-byte", ReadStreamByByte, "", "x", kNoLimit},
    {"engine:short-lines-byte-by-byte", ReadStreamByByte, "", "x\n", kNoLimit},
};

void Read(const Shape& shape, qsizetype size) {
  const QByteArray piece(shape.piece);
  const qsizetype number = piece.indexOf('#');
  const QByteArray repeated = number < 0 ? Repeated(shape.piece, size)
                                         : Numbered(piece.first(number).constData(),
                                                    piece.mid(number + 1).constData(), size);
  shape.read(shape.before + repeated);
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc != 3) {
    for (const auto& [name, read, before, piece, limit] : kShapes) {
      std::printf("%s %d %s\n", name, limit.most * kMegabyte, limit.reason);
    }
    return 0;
  }
  const std::string_view wanted(argv[1]);
  const qsizetype size = std::atoi(argv[2]) * kKilobyte;
  bool is_known = false;
  for (const Shape& shape : kShapes) {
    if (wanted != "all" && wanted != shape.name) continue;
    is_known = true;
    Read(shape, qMin(size, shape.limit.most * kMegabyte * kKilobyte));
  }
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("peak %ld KB\n", usage.ru_maxrss);
  return is_known ? 0 : 2;
}
