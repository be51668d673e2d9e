#include "window/schedule_buttons.h"

#include <utility>

#include <QGridLayout>

#include "window/panel_facts.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {

ScheduleButtons::ScheduleButtons(int id, QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setAlignment(Qt::AlignHCenter);
  // All of them from the start, so that the tab key goes by letter in whatever order they arrive.
  for (char letter = kFirstScheduleLetter; letter <= kLastScheduleLetter; ++letter) {
    const QLatin1Char name(letter);
    auto* button = new QPushButton(this);
    button->setObjectName(u"schedule_%1_%2"_s.arg(id).arg(name));
    button->setAccessibleDescription(u"Plays schedule %1 of panel %2"_s.arg(name).arg(id));
    button->setCheckable(true);    // pressed down while it plays
    button->setAutoDefault(true);  // the enter key presses it, as the space bar does
    button->hide();
    connect(button, &QPushButton::clicked, this, [this, letter, button] {
      // Whether it is pressed down is for the panel to say.
      button->setChecked(true);
      Q_EMIT Chosen(letter);
    });
    letters_.insert(letter, button);
  }
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
  return captions != std::exchange(captions_, captions);
}

int ScheduleButtons::Arrange(int width) {
  auto* grid = static_cast<QGridLayout*>(layout());
  while (QLayoutItem* item = grid->takeAt(0)) delete item;
  QSize largest;
  for (const QPushButton* button : std::as_const(letters_)) {
    if (!button->isHidden()) largest = largest.expandedTo(button->sizeHint());
  }
  if (largest.isEmpty()) return 0;
  const int columns = qMax(1, (width + grid->spacing()) / (largest.width() + grid->spacing()));
  int count = 0;
  for (QPushButton* button : std::as_const(letters_)) {
    if (button->isHidden()) continue;
    grid->addWidget(button, count / columns, count % columns);
    ++count;
  }
  const int rows = (count + columns - 1) / columns;
  return rows * largest.height() + (rows - 1) * grid->spacing();
}

}  // namespace VirtualPanel
