#include "files/shown_file.h"

#include <algorithm>

#include "base/file_checks.h"
#include "files/file_check.h"
#include "files/schedule_steps.h"
#include "page/message_transmission.h"
#include "page/page_picture.h"
#include "panel_dots/dot_matrix.h"
#include "schedule/schedule.h"
#include "scrolling/scrolling_transmission.h"
#include "store/configuration_store.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

using PanelDots::PanelPicture;

struct Look {
  qint16 colour_type;
  QDateTime clock;
};

/// Nothing for a page that no panel is sent: it has no rows, or next to no columns.
std::optional<PanelPicture> PageIn(const QString& path, const Look& look) {
  Brivon1::MessageFileReader file(path);
  const auto dimension = file.FileDimension();
  constexpr int kAnyPanel = 1;
  if (!dimension || !Brivon1::MessageFrames(path, kAnyPanel, "001", *dimension, look.colour_type)) {
    return std::nullopt;
  }
  QList<QByteArray> lines;
  while (lines.size() < dimension->rows) {
    lines.append(file.NextRowLine().value_or(QByteArray()));
  }
  return Brivon1::PagePicture(lines, *dimension, look.colour_type, look.clock);
}

PanelPicture TextIn(const QString& path, const Look& look) {
  const QByteArray text = Brivon1::ScrollingFileText(path).value_or(QByteArray());
  const auto cells = PanelDots::ParseCells(Brivon1::ScrollingPanelText(text, look.colour_type));
  PanelPicture picture;
  const int columns = PanelDots::ColumnsOf(cells, look.clock);
  picture.shape = {1, std::clamp(columns, 1, kWidestText), look.colour_type != Brivon1::kMono};
  picture.clock = look.clock;
  picture.rows.insert(1, cells);
  return picture;
}

QString Heading(qsizetype number, const ScheduleStep& step, const QString& name) {
  const QString feature = Quoted(step.details.feature.trimmed()).remove(u'"');
  return u"%1: %2, %3 s, %4"_s.arg(number)
      .arg(Printable(name))
      .arg(step.details.delay)
      .arg(feature);
}

void AddSteps(const QString& path, const Look& look, ShownFile* shown) {
  Brivon1::ScheduleReader file(path);
  const QList<ScheduleStep> steps = ReadSteps(&file);
  QStringList names;  // of the different files
  for (const ScheduleStep& step : steps) {
    if (step.place == names.size()) names.append(step.name);
  }
  if (names.size() > Brivon1::kMostDistinctFiles) {
    shown->refusal = u"more than %1 different message files: it cannot be sent"_s.arg(
        Brivon1::kMostDistinctFiles);
  } else if (names.join(QString()).isEmpty()) {
    shown->refusal = u"no step names a message file: it cannot be sent"_s;
  }
  for (const ScheduleStep& step : steps) {
    if (!shown->refusal.isEmpty()) return;
    const QString& name = names[step.place];
    const auto picture = PageIn(NamedFile(name), look);
    if (picture) {
      const auto number = static_cast<qsizetype>(shown->pages.size()) + 1;
      shown->pages.push_back({Heading(number, step, name), *picture});
    } else {
      shown->refusal =
          u"line %1: %2 is a page that cannot be sent"_s.arg(step.line).arg(Printable(name));
    }
  }
}

}  // namespace

ShownFile ReadShownFile(const QString& path, bool mono, const QDateTime& clock) {
  const Look look{mono ? Brivon1::kMono : Brivon1::kTri, clock};
  const FileReport report = CheckFile(path);
  ShownFile shown;
  shown.refusal = report.FirstError();
  shown.is_schedule = report.kind == FileKind::kSchedule;
  if (!shown.refusal.isEmpty()) return shown;
  if (report.kind == FileKind::kScrolling) {
    shown.pages.push_back({{}, TextIn(path, look)});
  } else if (shown.is_schedule) {
    AddSteps(path, look, &shown);
  } else if (const auto picture = PageIn(path, look)) {
    shown.pages.push_back({{}, *picture});
  } else {
    shown.refusal =
        u"a page of %1 rows and %2 columns is not sent to any panel"_s.arg(report.dimension->rows)
            .arg(report.dimension->columns);
  }
  return shown;
}

}  // namespace BrivonCtl
