#include "soak/random_work.h"

#include <algorithm>

using namespace Qt::StringLiterals;

using VirtualPanel::PanelDescription;

namespace {

constexpr char kLetters[] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789 .,:-/()";
constexpr int kHighestPage = 120;
constexpr int kPagesOfALetter = 12;

/// A text as a file has it, and as a panel holds it.
struct Text {
  QByteArray in_file;
  QByteArray on_panel;
};

QByteArray Digits(int number, int width) {
  return QByteArray::number(number).rightJustified(width, '0');
}

QByteArray Prefix(int id) {
  return "<ID" + QByteArray::number(id, 16).toUpper().rightJustified(2, '0') + '>';
}

void Append(Text& text, const QByteArray& piece) {
  text.in_file += piece;
  text.on_panel += piece;
}

/// It ends in no blank, and neither it nor any piece of it is the panel's own date or time.
Text RandomText(Random& random, bool tri_colour, const QByteArray& mark, int pieces) {
  Text text;
  Append(text, "<S" + QByteArray(1, static_cast<char>('A' + random.Below(4))) + '>');
  Append(text, mark);
  for (int piece = random.Below(pieces); piece > 0; --piece) {
    if (random.OneIn(3)) {
      const QByteArray colour =
          "<C" + QByteArray(1, static_cast<char>('A' + random.Below(16))) + '>';
      text.in_file += colour;
      if (tri_colour) text.on_panel += colour;
    }
    QByteArray letters;
    for (int left = random.Between(1, 8); left > 0; --left) {
      letters += random.OneIn(6) ? static_cast<char>(random.Between(0xA1, 0xFF))
                                 : kLetters[random.Below(sizeof(kLetters) - 1)];
    }
    Append(text, letters + '.');
  }
  return text;
}

/// Writes a page message file of random rows for `panel`.
SentPage WritePage(Random& random, const PanelDescription& panel, const QString& path,
                   const QByteArray& mark, const TemporaryProgramFolder& folder) {
  SentPage page;
  QByteArray file = "*** Brivon Message File ***\r\nRow = " + QByteArray::number(panel.rows) +
                    "\r\nCol = " + QByteArray::number(panel.columns) + "\r\n";
  for (int row = 1; row <= panel.rows; ++row) {
    const Text text = RandomText(random, panel.tri_colour, mark + '/' + Digits(row, 2), 12);
    file += "<L" + Digits(row, 2) + '>' + text.in_file + "\r\n";
    page.rows.append(text.on_panel + ' ');
  }
  folder.Write(path, file);
  return page;
}

void AppendFrames(Work& work, const SentPage& page) {
  for (int row = 1; row <= page.rows.size(); ++row) {
    work.frames.append(Prefix(work.panel.id) + "<L" + Digits(row, 2) + "><P" +
                       Digits(page.number, 3) + '>' + page.rows.at(row - 1) + "\r\n");
  }
  work.pages.append(page);
}

void MakePage(Work& work, Random& random, const TemporaryProgramFolder& folder,
              const QByteArray& mark) {
  SentPage page = WritePage(random, work.panel, u"page.msg"_s, mark, folder);
  page.number = random.Between(1, kHighestPage);
  work.path = folder.Path(u"page.msg"_s);
  work.number = QString::number(page.number);
  AppendFrames(work, page);
}

/// The field of a schedule for a day or a time, and the same in the frame.
QByteArray TimeField(std::optional<int> value) {
  return value ? Digits(*value, 2) : QByteArray("**");
}

void MakeSchedule(Work& work, Random& random, const TemporaryProgramFolder& folder,
                  const QByteArray& mark) {
  static const QList<QByteArray> kFeatures = {"Appear",    "Flip", "Open",  "Wipe Right",
                                              "Wipe Left", "Fall", "Slide", "Shift"};
  work.letter = static_cast<char>('A' + random.Below(10));
  work.number = QString(QLatin1Char(work.letter));
  const int files = random.Between(1, 3);
  for (int file = 0; file < files; ++file) {
    SentPage page = WritePage(random, work.panel, u"step%1.msg"_s.arg(file),
                              mark + static_cast<char>('a' + file), folder);
    page.number = (work.letter - 'A') * kPagesOfALetter + 1 + file;
    AppendFrames(work, page);
  }
  auto& schedule = work.schedule;
  if (!random.OneIn(3)) schedule.weekday = random.Below(7);
  if (!random.OneIn(3)) schedule.hour = random.Below(24);
  if (!random.OneIn(3)) schedule.minute = random.Below(60);
  const int entries = random.Between(files, 6);
  QByteArray lines;
  QList<QByteArray> codes;
  for (int entry = 0; entry < entries; ++entry) {
    const int file = entry < files ? entry : random.Below(files);
    const int delay = random.Between(1, 120);
    const int feature = random.Below(static_cast<int>(kFeatures.size()));
    const int page = work.pages.at(file).number;
    const char code = static_cast<char>('A' + feature);
    schedule.entries.append({page, delay, code});
    lines += "step" + QByteArray::number(file) + ".msg\r\n" + QByteArray::number(delay) + "\r\n" +
             kFeatures.at(feature) + "\r\n";
    codes.append(Digits(page, 3) + Digits(delay, 2) + code);
  }
  const QByteArray week = QByteArray::number(schedule.weekday ? *schedule.weekday + 1 : 0);
  folder.Write(u"week.sch"_s,
               "*** Brivon Schedule File ***\r\nWeek =" + week + "\r\nHour =" +
                   TimeField(schedule.hour) + "\r\nMin =" + TimeField(schedule.minute) +
                   "\r\nRow =" + QByteArray::number(work.panel.rows) +
                   "\r\nCol =" + QByteArray::number(work.panel.columns) +
                   "\r\nNo of Sequence =" + QByteArray::number(entries) + "\r\n" + lines);
  work.path = folder.Path(u"week.sch"_s);
  const QByteArray day = schedule.weekday ? QByteArray::number(*schedule.weekday) : QByteArray("*");
  work.frames.append(Prefix(work.panel.id) + "<T" + work.letter + '>' + day +
                     TimeField(schedule.hour) + TimeField(schedule.minute) + codes.join(',') +
                     "\r\n");
}

void MakeScrolling(Work& work, Random& random, const TemporaryProgramFolder& folder,
                   const QByteArray& mark) {
  const Text text = RandomText(random, work.panel.tri_colour, mark, 20);
  folder.Write(u"text.srl"_s, "*** Brivon Shift Message File ***\r\n" + text.in_file + "\r\n");
  work.path = folder.Path(u"text.srl"_s);
  work.row = random.Between(1, work.panel.rows);
  work.number = QString::number(work.row);
  work.scrolling = text.on_panel;
  work.frames.append(Prefix(work.panel.id) + "<L" + QByteArray::number(work.row) + '>' +
                     text.on_panel + "\r\n");
}

void MakeCommand(Work& work, Random& random) {
  const QByteArray prefix = Prefix(work.panel.id);
  const int page = random.Between(1, kHighestPage);
  switch (random.Below(6)) {
    case 0:
      work.kind = WorkKind::kSetClock;
      break;
    case 1:
      work.kind = WorkKind::kDeleteAll;
      work.frames = {prefix + "<D*>\r\n"};
      break;
    case 2:
      work.kind = WorkKind::kDeletePage;
      work.number = QString::number(page);
      work.frames = {prefix + "<D" + Digits(page, 3) + ">\r\n"};
      break;
    case 3:
      work.kind = WorkKind::kRunPage;
      work.number = QString::number(page);
      work.frames = {prefix + "<RP" + Digits(page, 3) + ">\r\n"};
      break;
    default:
      work.kind = WorkKind::kPoll;
      work.frames = {prefix + "<?>\r\n"};
      break;
  }
}

}  // namespace

QList<PanelDescription> RandomPanels(Random& random) {
  QList<PanelDescription> panels;
  for (int left = random.Between(1, 4); left > 0; --left) {
    const int id = random.Between(1, 255);
    const bool is_new =
        std::none_of(panels.cbegin(), panels.cend(),
                     [id](const PanelDescription& panel) { return panel.id == id; });
    if (is_new) {
      panels.append({id, random.Between(1, 12), 8 * random.Between(4, 40), random.OneIn(2)});
    }
  }
  std::sort(panels.begin(), panels.end(),
            [](const PanelDescription& a, const PanelDescription& b) { return a.id < b.id; });
  return panels;
}

Work RandomWork(Random& random, const PanelDescription& panel, const TemporaryProgramFolder& folder,
                qint64 serial) {
  Work work;
  work.panel = panel;
  const QByteArray mark = '#' + QByteArray::number(serial);
  switch (random.Below(4)) {
    case 0:
      work.kind = WorkKind::kPage;
      MakePage(work, random, folder, mark);
      break;
    case 1:
      work.kind = WorkKind::kSchedule;
      MakeSchedule(work, random, folder, mark);
      break;
    case 2:
      work.kind = WorkKind::kScrolling;
      MakeScrolling(work, random, folder, mark);
      break;
    default:
      MakeCommand(work, random);
      break;
  }
  return work;
}

QString Describe(const Work& work) {
  static const QStringList kNames = {u"page"_s,        u"schedule"_s,  u"scrolling message"_s,
                                     u"poll"_s,        u"set clock"_s, u"delete all"_s,
                                     u"delete page"_s, u"run page"_s};
  return kNames.at(static_cast<int>(work.kind)) + u' ' + work.number +
         u" to panel %1 (%2x%3 %4)"_s.arg(work.panel.id)
             .arg(work.panel.rows)
             .arg(work.panel.columns)
             .arg(work.panel.tri_colour ? u"tri"_s : u"mono"_s);
}
