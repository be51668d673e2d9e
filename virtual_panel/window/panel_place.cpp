#include "window/panel_place.h"

#include <utility>

#include <QHBoxLayout>
#include <QtMath>

#include "base/tool_tip_text.h"
#include "engine/timer_wait.h"
#include "window/panel_facts.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {

PanelPlace::PanelPlace(PanelEngine* engine, int id, QObject* parent)
    : QObject(parent),
      engine_(engine),
      id_(id),
      view_(new PanelView(engine, id)),
      scroll_(new QScrollArea),
      schedules_(new ScheduleButtons(id)) {
  connect(view_, &PanelView::Entered, this, &PanelPlace::Entered);
  // A panel that is too wide for the window is scrolled by itself.
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  scroll_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setObjectName(u"scroll_%1"_s.arg(id));
  scroll_->setAccessibleName(u"Panel %1"_s.arg(id));
  scroll_->setWidget(view_);
  MakeLabels();
  MakePages();
  connect(schedules_, &ScheduleButtons::Chosen, this,
          [this](char letter) { engine_->Play(id_, letter); });

  clock_timer_.setObjectName(u"clock_timer_%1"_s.arg(id));
  play_timer_.setObjectName(u"play_timer_%1"_s.arg(id));
  play_timer_.setTimerType(Qt::PreciseTimer);
  for (QTimer* timer : {&clock_timer_, &play_timer_}) {
    timer->setParent(this);
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, &PanelPlace::Due);
  }
}

void PanelPlace::MakeLabels() {
  facts_ = new QLabel;
  facts_->setObjectName(u"facts_%1"_s.arg(id_));
  facts_->setWordWrap(true);
  playing_ = new QLabel;
  playing_->setObjectName(u"playing_%1"_s.arg(id_));
  playing_->hide();
  for (QLabel* label : {facts_, playing_}) {
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAlignment(Qt::AlignHCenter);
  }
}

void PanelPlace::MakePages() {
  pages_ = new PageStrip([this](int page) {
    const StoredPage stored = ShownPanel().Memory().Pages().value(page);
    return Brivon1::ToolTipText(PageText(stored, engine_->Clock(id_)), Brivon1::LongLines::kBroken);
  });
  pages_->setObjectName(u"pages_%1"_s.arg(id_));
  pages_->setAccessibleName(u"Stored pages of panel %1"_s.arg(id_));
  connect(pages_, &PageStrip::Chosen, this, [this](int page) { engine_->Run(id_, page); });
  stored_ = new QWidget;
  stored_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* layout = new QHBoxLayout(stored_);
  layout->setContentsMargins(0, 0, 0, 0);
  pages_caption_ = new QLabel(u"Pages"_s);
  pages_caption_->setObjectName(u"pages_caption_%1"_s.arg(id_));
  pages_caption_->setBuddy(pages_);
  layout->addStretch();
  layout->addWidget(pages_caption_);
  layout->addWidget(pages_);
  layout->addStretch();
  stored_->hide();
}

void PanelPlace::AddTo(QVBoxLayout* layout) {
  layout->addWidget(scroll_);
  layout->addWidget(facts_);
  layout->addWidget(stored_);
  layout->addWidget(playing_);
  layout->addWidget(schedules_);
  layout->addStretch();
}

bool PanelPlace::Refresh(const QDateTime& now) {
  const Panel& panel = ShownPanel();
  view_->Refresh(now);
  facts_->setText(Facts(panel, now));

  const QList<int> pages = panel.Memory().Pages().keys();
  pages_->SetPages(pages, panel.ShownPage(now));
  stored_->setHidden(pages.isEmpty());
  bool is_other = pages.size() != std::exchange(page_count_, pages.size());

  const Schedules& schedules = panel.Memory().StoredSchedules();
  const auto playing = panel.PlayingAt(now);
  is_other |= schedules_->SetSchedules(schedules, playing);
  playing_->setText(PlayingText(playing));
  playing_->setVisible(!schedules.isEmpty());
  StartTimers(now);
  return is_other;
}

void PanelPlace::StartTimers(const QDateTime& now) {
  // To its next minute: its clock shows no seconds.
  const qint64 of_day = ShownPanel().Clock(now).time().msecsSinceStartOfDay();
  clock_timer_.start(static_cast<int>(kMinuteMs - of_day % kMinuteMs));
  // To the next page of a schedule that plays, or the beginning of one.
  if (const auto next_change = ShownPanel().NextChange(now)) {
    play_timer_.start(TimerWait(now, *next_change));
  } else {
    play_timer_.stop();
  }
}

int PanelPlace::ArrangeBelow(int width, int spacing) {
  int height = facts_->heightForWidth(width) + 2 * spacing;
  if (!stored_->isHidden()) {
    const int caption_width = pages_caption_->sizeHint().width() + stored_->layout()->spacing();
    height += pages_->Arrange(width - caption_width) + spacing;
  }
  if (!schedules_->isHidden()) {
    height += playing_->sizeHint().height() + schedules_->Arrange(width) + 2 * spacing;
  }
  return height;
}

void PanelPlace::SetDotDistance(double distance, double room, int bar) {
  const QSizeF size = SizeInDots() * distance;
  const bool is_too_wide = size.width() > room;
  view_->setMinimumWidth(is_too_wide ? qCeil(size.width()) : 0);
  // The tab key stops only where the arrow keys have something to scroll.
  scroll_->setFocusPolicy(is_too_wide ? Qt::StrongFocus : Qt::NoFocus);
  scroll_->setFixedHeight(qCeil(size.height()) + (is_too_wide ? bar : 0));
}

}  // namespace VirtualPanel
