#include "schedule/schedule_preview.h"

#include <utility>

#include <QFileInfo>
#include <QItemSelectionModel>
#include <QSet>

#include "language/further_texts.h"
#include "language/module_language.h"
#include "page/page_picture.h"
#include "panel_dots/live_picture.h"
#include "schedule/schedule_file.h"
#include "schedule/schedule_pane.h"
#include "schedule/sequence_table.h"
#include "store/configuration_store.h"
#include "widgets/bind_key.h"
#include "widgets/next_input.h"

using namespace Qt::StringLiterals;

using Brivon1::SchedulePage;
using Brivon1::SchedulePlay;
using ModuleLanguage::TranslateMessage;
using ModuleLanguage::TranslateText;
using PanelDots::Entrance;
using PanelDots::PanelPicture;

SchedulePreview::SchedulePreview(SequenceTable* table, SchedulePane* pane, TimeSource now,
                                 QWidget* window)
    : QObject(window),
      table_(*table),
      pane_(*pane),
      now_(std::move(now)),
      next_input_(new NextInput(window, [this] { Stop(); })) {
  pane_.Picture()->SetTimeSource(now_);
  step_timer_.setParent(this);
  step_timer_.setObjectName(u"step_timer_"_s);
  step_timer_.setSingleShot(true);
  step_timer_.setTimerType(Qt::PreciseTimer);
  connect(&step_timer_, &QTimer::timeout, this, &SchedulePreview::Proceed);
  connect(pane_.Button(), &QPushButton::clicked, this, &SchedulePreview::PressButton);
  connect(&pane_, &SchedulePane::Seen, this, [this](bool is_seen) {
    table_.ReadPages(is_seen);
    if (!is_seen) Stop();
  });
  connect(pane_.OneColour(), &QCheckBox::toggled, this, [this] {
    Stop();
    ShowSelected();
  });
  BindKey(Qt::SHIFT | Qt::Key_F9, pane_.OneColour());
  connect(&table_, &SequenceTable::PageRead, this, &SchedulePreview::TakePage);
  connect(table_.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (!IsPlaying()) ShowSelected();
  });
}

PanelDots::PanelShape SchedulePreview::Shape() const {
  return Brivon1::PanelShapeOf(schedule_.dimension, ColourType());
}

qint16 SchedulePreview::ColourType() const {
  return pane_.OneColour()->isChecked() ? Brivon1::kMono : Brivon1::kTri;
}

void SchedulePreview::Show(const Brivon1::Schedule& schedule) {
  Stop();
  if (schedule_.dimension != schedule.dimension) pages_.clear();
  schedule_ = schedule;
  QSet<QString> paths;
  for (int position = 1; position <= schedule_.Count(); ++position) {
    paths.insert(table_.PathAt(position));
  }
  pages_.removeIf([&](const auto& page) { return !paths.contains(page.key()); });
  pane_.SetShape(Shape());
  pane_.Button()->setEnabled(schedule_.Count() > 0);
  ShowSelected();
}

void SchedulePreview::TakePage(const QString& path, const SchedulePage& page) {
  const auto known = pages_.constFind(path);
  if (known != pages_.constEnd() && *known == page) return;
  pages_.insert(path, page);
  if (path != table_.PathAt(position_)) return;
  // What is on its way in goes on; in place of a note the page is there at once.
  ShowPage(pane_.HasNote() ? std::nullopt : pane_.Picture()->Picture().entrance);
}

void SchedulePreview::ShowSelected() {
  position_ = table_.SelectedPosition();
  if (!schedule_.Holds(position_)) position_ = 0;
  ShowPage(std::nullopt);
}

void SchedulePreview::ShowPage(std::optional<Entrance> entrance) {
  if (!schedule_.Holds(position_)) {
    pane_.SetName(TranslateText(u"Preview on a panel"_s));
    ShowPicture({}, std::nullopt);
    return;
  }
  const QString path = Brivon1::FieldPath(schedule_.Sequences()[position_ - 1].path);
  const QString name = QFileInfo(path).fileName();
  pane_.SetName(TranslateText(u"Step %1: %2"_s).arg(position_).arg(name));
  const auto page = pages_.constFind(table_.PathAt(position_));
  if (path.isEmpty()) {
    pane_.ShowNote(TranslateMessage(Brivon1::MissingPage().refusal));
  } else if (page == pages_.constEnd()) {
    pane_.ShowNote(TranslateText(u"Reading %1"_s).arg(name));
  } else if (!page->refusal.isEmpty()) {
    pane_.ShowNote(TranslateMessage(page->refusal));
  } else {
    ShowPicture(ColourType() == Brivon1::kMono ? page->rows_of_one_colour : page->rows,
                std::move(entrance));
  }
}

void SchedulePreview::ShowPicture(const PanelDots::PageRows& rows,
                                  std::optional<Entrance> entrance) {
  PanelPicture picture{Shape(), rows};
  picture.entrance = std::move(entrance);
  pane_.Picture()->ShowNow(std::move(picture));
  pane_.ShowNote({});
}

// ---- playing ------------------------------------------------------------------------------------

void SchedulePreview::PressButton() { IsPlaying() ? Stop() : Play(); }

void SchedulePreview::Play() {
  // With "End" selected, from the first one on.
  const int selected = table_.SelectedPosition();
  const int first = schedule_.Holds(selected) ? selected : 1;
  play_.emplace(schedule_.Sequences(), first, Brivon1::FeatureNames(), now_().toMSecsSinceEpoch());
  // The first page enters a dark panel.
  position_ = 0;
  ShowPage(std::nullopt);
  pane_.Button()->ShowPlaying(true);
  next_input_->Await();
  Proceed();
}

void SchedulePreview::Proceed() {
  const qint64 now_ms = now_().toMSecsSinceEpoch();
  const SchedulePlay::Shown shown = play_->At(now_ms);
  if (position_ != shown.position || entered_ms_ != shown.entered_ms) {
    position_ = shown.position;
    entered_ms_ = shown.entered_ms;
    // Behind a note the panel is dark.
    const PanelPicture before =
        pane_.HasNote() ? PanelPicture{Shape()} : pane_.Picture()->Picture();
    table_.ShowPlaying(position_);
    ShowPage(
        PanelDots::EntranceInto(PanelDots::DotsOf(before, now_ms), shown.effect, shown.entered_ms));
  }
  if (shown.ms_to_next) step_timer_.start(static_cast<int>(*shown.ms_to_next));
}

void SchedulePreview::Stop() {
  if (!IsPlaying()) return;
  play_.reset();
  step_timer_.stop();
  next_input_->Cancel();
  table_.ShowPlaying(0);
  pane_.Button()->ShowPlaying(false);
  ShowSelected();
}
