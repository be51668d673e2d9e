#include "window/panel_place.h"

#include <utility>

#include <QHBoxLayout>
#include <QStyle>
#include <QtMath>

#include "base/tool_tip_text.h"
#include "engine/timer_wait.h"
#include "window/panel_facts.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

// Between two texts, or two lists, that stand side by side.
constexpr int kGap = 18;

// The height of a label of this text in this width.
int HeightOf(const QLabel& like, const QString& text, int width) {
  QLabel label(text);
  label.setFont(like.font());
  label.setWordWrap(true);
  label.setTextInteractionFlags(like.textInteractionFlags());
  return label.heightForWidth(width);
}

}  // namespace

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
  MakeLists();
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
  playing_ = new QLabel;
  playing_->setObjectName(u"playing_%1"_s.arg(id_));
  playing_->hide();
  for (QLabel* label : {facts_, playing_}) {
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAlignment(Qt::AlignHCenter);
  }
  texts_ = new QWidget;
  auto* layout = new QHBoxLayout(texts_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addStretch();
  layout->addWidget(facts_);
  layout->addWidget(playing_);
  layout->addStretch();
}

void PanelPlace::MakeLists() {
  pages_ = new PageStrip([this](int page) {
    const StoredPage stored = ShownPanel().Memory().Pages().value(page);
    return Brivon1::ToolTipText(PageText(stored, engine_->Clock(id_)), Brivon1::LongLines::kBroken);
  });
  pages_->setObjectName(u"pages_%1"_s.arg(id_));
  pages_->setAccessibleName(u"Stored pages of panel %1"_s.arg(id_));
  connect(pages_, &PageStrip::Chosen, this, [this](int page) { engine_->Run(id_, page); });
  lists_ = new QWidget;
  auto* layout = new QHBoxLayout(lists_);
  layout->setContentsMargins(0, 0, 0, 0);
  pages_caption_ = new QLabel(u"Pages"_s);
  pages_caption_->setObjectName(u"pages_caption_%1"_s.arg(id_));
  pages_caption_->setBuddy(pages_);
  // At the top, so that nothing moves when a scroll bar comes below.
  layout->addStretch();
  layout->addWidget(pages_caption_, 0, Qt::AlignTop);
  layout->addWidget(pages_, 0, Qt::AlignTop);
  layout->addSpacing(kGap - layout->spacing());
  layout->addWidget(schedules_, 0, Qt::AlignTop);
  layout->addStretch();
  pages_caption_->hide();
  pages_->hide();
}

void PanelPlace::AddTo(QVBoxLayout* layout) {
  layout->addWidget(scroll_);
  layout->addWidget(texts_);
  layout->addWidget(lists_);
  layout->addStretch();
}

bool PanelPlace::Refresh(const QDateTime& now) {
  const Panel& panel = ShownPanel();
  view_->Refresh(now);
  facts_->setText(Facts(panel, now));

  const QList<int> pages = panel.Memory().Pages().keys();
  pages_->SetPages(pages, panel.ShownPage(now));
  pages_caption_->setHidden(pages.isEmpty());
  pages_->setHidden(pages.isEmpty());
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

PanelPlace::Below PanelPlace::HeightBelow(int width, int spacing) const {
  const int facts = HeightOf(*facts_, LongestFacts(ShownPanel().Description()), width);
  const int playing = TextsFitOneLine(width) ? 0 : HeightOf(*playing_, LongestPlayingText(), width);
  return {facts + playing + HeightOfLists() + 3 * spacing, facts + 2 * spacing};
}

void PanelPlace::ArrangeBelow(int width, bool keeps_room) {
  ArrangeTexts(width, keeps_room);
  ArrangeLists(width, keeps_room);
}

bool PanelPlace::TextsFitOneLine(int width) const {
  const QFontMetrics metrics = facts_->fontMetrics();
  return metrics.horizontalAdvance(LongestFacts(ShownPanel().Description())) + kGap +
             metrics.horizontalAdvance(LongestPlayingText()) <
         width;
}

void PanelPlace::ArrangeTexts(int width, bool keeps_room) {
  const bool is_one_line = TextsFitOneLine(width);
  auto* layout = static_cast<QBoxLayout*>(texts_->layout());
  layout->setDirection(is_one_line ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  layout->setSpacing(is_one_line ? kGap : 0);
  for (QLabel* label : {facts_, playing_}) label->setWordWrap(!is_one_line);
  const int facts = HeightOf(*facts_, LongestFacts(ShownPanel().Description()), width);
  const int playing = HeightOf(*playing_, LongestPlayingText(), width);
  facts_->setFixedHeight(facts);
  playing_->setFixedHeight(playing);
  QSizePolicy policy = playing_->sizePolicy();
  policy.setRetainSizeWhenHidden(keeps_room && !is_one_line);
  playing_->setSizePolicy(policy);
  const bool has_two = !is_one_line && (keeps_room || !playing_->isHidden());
  texts_->setFixedHeight(facts + (has_two ? playing : 0));
}

int PanelPlace::HeightOfLists() const {
  const int bar = lists_->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, lists_);
  return qMax(pages_->HeightOfPages(), schedules_->HeightOfButtons()) + bar;
}

void PanelPlace::ArrangeLists(int width, bool keeps_room) {
  const int caption = pages_caption_->sizeHint().width() + lists_->layout()->spacing();
  const bool has_pages = !pages_->isHidden();
  const bool has_schedules = !schedules_->isHidden();
  // What lies between the two stays where one of them stands alone.
  const int gap = kGap - lists_->layout()->spacing();
  int pages_room = width - caption - gap;
  int schedules_room = width - gap;
  if (has_pages && has_schedules) {
    // What the one does not need is the other's; else each has half.
    const int both = width - caption - kGap;
    schedules_room = qMax(both / 2, both - pages_->WidthOfPages());
    pages_room = both - qMin(schedules_room, schedules_->WidthOfButtons());
  }
  pages_caption_->setFixedHeight(pages_->HeightOfPages());
  pages_->Arrange(pages_room);
  schedules_->Arrange(schedules_room);
  lists_->setFixedHeight(HeightOfLists());
  lists_->setVisible(keeps_room || has_pages || has_schedules);
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
