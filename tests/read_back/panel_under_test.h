// Panels at the end of a line in memory, and a program folder that is configured for them.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QTimeZone>

#include <gtest/gtest.h>

#include "engine/panel_engine.h"
#include "panel_dots/panel_picture.h"
#include "panel_line/transmission.h"
#include "read_back/shown_character.h"
#include "support/memory_line.h"
#include "support/program_folder.h"
#include "support/virtual_time.h"

/// What a panel's cells show.
inline ShownRow ShownOf(const QList<PanelDots::Cell>& cells) {
  ShownRow shown;
  for (const PanelDots::Cell& cell : cells) {
    using CellKind = PanelDots::Cell::Kind;
    auto kind = ShownCharacter::Kind::kCharacter;
    if (cell.kind == CellKind::kGraphic) kind = ShownCharacter::Kind::kSymbol;
    if (cell.kind == CellKind::kDate) kind = ShownCharacter::Kind::kDate;
    if (cell.kind == CellKind::kTime) kind = ShownCharacter::Kind::kTime;
    shown.push_back({kind, cell.character, cell.size, cell.colour, cell.blinking});
  }
  return shown;
}

class PanelUnderTest {
 public:
  static constexpr int kNeighbour = 200;

  /// `id` 0: what is sent goes to all, and panel 7 is the one that is looked at.
  PanelUnderTest(const TemporaryProgramFolder& folder, int id,
                 const VirtualPanel::PanelDescription& shape)
      : id_(id), engine_(Panels(shape), [] { return kClock; }) {
    const QByteArray size =
        QByteArray::number(shape.rows) + 'x' + QByteArray::number(shape.columns);
    QByteArray ini = "[Dimension Config]\r\n";
    ini += "ID" + QByteArray::number(id).rightJustified(3, '0') + '=' + size;
    ini += shape.tri_colour ? ",Tri,127.0.0.1:2101\r\n" : ",Mono,127.0.0.1:2101\r\n";
    ini += "[Communication]\r\nDelay Period=0\r\n";
    folder.Configure(ini);
    port_.PlugIn();
    port_.Open(QStringLiteral("line"), {});
  }

  int Id() const { return id_; }

  Brivon1::OpenLine Line() {
    return {port_, timer_, clock_, Brivon1::Store(), [](const QString&) {}};
  }

  /// Every frame that arrived, with its line end.
  QList<QByteArray> Frames() const {
    QList<QByteArray> frames;
    for (const VirtualPanel::FrameRecord& record : engine_.Frames()) frames.append(record.bytes);
    return frames;
  }

  const VirtualPanel::PanelMemory& Memory() const {
    return engine_.FindPanel(LookedAt())->Memory();
  }

  /// What another panel holds of what was not sent to it.
  bool IsNeighbourEmpty() const {
    const VirtualPanel::PanelMemory& memory = engine_.FindPanel(kNeighbour)->Memory();
    return memory.Pages().isEmpty() && memory.StoredSchedules().isEmpty() &&
           memory.Scrolling().isEmpty();
  }

  static inline const QDateTime kClock{QDate(2026, 3, 5), QTime(14, 7, 9), QTimeZone::utc()};

 private:
  int LookedAt() const { return id_ == 0 ? 7 : id_; }

  QList<VirtualPanel::PanelDescription> Panels(VirtualPanel::PanelDescription shape) const {
    shape.id = LookedAt();
    return {shape, {kNeighbour, 12, 3000, true}};
  }

  int id_;
  VirtualPanel::PanelEngine engine_;
  VirtualTime time_;
  VirtualTickTimer timer_{time_};
  VirtualClock clock_{time_};
  MemoryPort port_{engine_, time_, QStringLiteral("line")};
};
