#include "window/schedule_buttons.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QStyle>

#include "window/panel_facts.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {

ScheduleButtons::ScheduleButtons(int id, QWidget* parent) : QScrollArea(parent) {
  setObjectName(u"schedules_%1"_s.arg(id));
  setAccessibleName(u"Schedules of panel %1"_s.arg(id));
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);  // its buttons have it
  auto* buttons = new QWidget;
  auto* layout = new QHBoxLayout(buttons);
  layout->setContentsMargins(0, 0, 0, 0);
  // All of them from the start, so that the tab key goes by letter in whatever order they arrive.
  for (char letter = kFirstScheduleLetter; letter <= kLastScheduleLetter; ++letter) {
    const QLatin1Char name(letter);
    auto* button = new QPushButton(buttons);
    button->setObjectName(u"schedule_%1_%2"_s.arg(id).arg(name));
    button->setAccessibleDescription(u"Plays schedule %1 of panel %2"_s.arg(name).arg(id));
    button->setCheckable(true);    // pressed down while it plays
    button->setAutoDefault(true);  // the enter key presses it, as the space bar does
    button->hide();
    button->installEventFilter(this);
    layout->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, letter, button] {
      // Whether it is pressed down is for the panel to say.
      button->setChecked(true);
      Q_EMIT Chosen(letter);
    });
    letters_.insert(letter, button);
  }
  setWidget(buttons);
  connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this,
          &ScheduleButtons::ShowFocusedOrPlaying);
  hide();
}

bool ScheduleButtons::SetSchedules(const Schedules& schedules,
                                   const std::optional<Playing>& playing) {
  QString captions;
  for (auto letter = letters_.cbegin(); letter != letters_.cend(); ++letter) {
    QPushButton* button = *letter;
    const auto schedule = schedules.constFind(letter.key());
    const bool is_there = schedule != schedules.constEnd();
    if (is_there) {
      button->setText(ScheduleCaption(letter.key(), *schedule));
      button->setToolTip(ScheduleToolTip(*schedule));
      button->setChecked(playing && playing->letter == letter.key());
      captions += button->text() + QLatin1Char('\n');
    }
    button->setVisible(is_there);
  }
  setVisible(!schedules.isEmpty());
  const std::optional<char> letter = playing ? std::optional(playing->letter) : std::nullopt;
  if (letter != std::exchange(playing_, letter)) ShowFocusedOrPlaying();
  return captions != std::exchange(captions_, captions);
}

int ScheduleButtons::WidthOfButtons() const { return widget()->layout()->sizeHint().width(); }

int ScheduleButtons::HeightOfButtons() const { return letters_.first()->sizeHint().height(); }

void ScheduleButtons::Arrange(int width) {
  const int wanted = WidthOfButtons();
  const bool is_scrolled = wanted > width;
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  setHorizontalScrollBarPolicy(is_scrolled ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  setFixedSize(qMin(wanted, width), HeightOfButtons() + (is_scrolled ? bar : 0));
}

void ScheduleButtons::ShowFocusedOrPlaying() {
  // Whoever looks for a schedule with the keyboard is not led away from it.
  const auto focused = std::find_if(letters_.cbegin(), letters_.cend(),
                                    [](const QPushButton* button) { return button->hasFocus(); });
  if (focused != letters_.cend()) {
    ensureWidgetVisible(*focused);
  } else if (playing_) {
    ensureWidgetVisible(letters_[*playing_]);
  }
}

bool ScheduleButtons::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    // A click must find its button where it is.
    if (reason != Qt::MouseFocusReason) ensureWidgetVisible(static_cast<QWidget*>(watched));
  }
  return QScrollArea::eventFilter(watched, event);
}

void ScheduleButtons::wheelEvent(QWheelEvent* event) {
  // Any wheel moves the line, as it does that of the pages.
  QCoreApplication::sendEvent(horizontalScrollBar(), event);
}

}  // namespace VirtualPanel
