#include "schedule/schedule_pane.h"

#include <algorithm>
#include <initializer_list>

#include <QEvent>
#include <QHBoxLayout>
#include <QResizeEvent>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>
#include <QtMath>

#include "widgets/fitted_text.h"

using namespace Qt::StringLiterals;

namespace {

/// Narrower than that, the splitter leaves the pane out.
constexpr int kLeastWidth = 120;

/// The width that it takes where there is more room than enough.
constexpr int kUsualWidth = 400;
constexpr int kUsualPitch = 4;

/// A panel whose dots would stand closer together than that is drawn larger and scrolled.
constexpr double kLeastPitch = 1;
constexpr double kScrolledPitch = 2;

/// A size that is no bound.
constexpr double kEndless = 1e6;

}  // namespace

SchedulePane::SchedulePane(QSplitter* splitter)
    : QWidget(splitter),
      scroll_(new QScrollArea(this)),
      picture_(new PanelDots::LivePicture),
      note_(new FittedLabel(this)),
      play_(new PlayButton(this)),
      one_colour_(new CaptionCheckBox(u"One color"_s, this)) {
  picture_->setObjectName(u"picPreview"_s);
  scroll_->setObjectName(u"scrollPreview"_s);
  note_->setObjectName(u"lblPreview"_s);
  one_colour_->setObjectName(u"chkOneColor"_s);
  play_->setEnabled(false);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setWidgetResizable(true);
  scroll_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setWidget(picture_);
  // The ground of the window shows through.
  picture_->setAutoFillBackground(false);
  scroll_->viewport()->setAutoFillBackground(false);
  note_->setWordWrap(true);
  note_->setTextFormat(Qt::PlainText);
  note_->setAlignment(Qt::AlignCenter);
  note_->hide();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(scroll_);
  layout->addWidget(note_);
  controls_ = new QVBoxLayout;
  for (QWidget* control : std::initializer_list<QWidget*>{play_, one_colour_}) {
    auto* line = new QHBoxLayout;
    line->addStretch();
    line->addWidget(control);
    line->addStretch();
    controls_->addLayout(line);
  }
  layout->addLayout(controls_);
  layout->addStretch();
  Splitter()->installEventFilter(this);
  connect(Splitter(), &QSplitter::splitterMoved, this, &SchedulePane::OnMoved);
  // The pane takes the room that there is and asks for none.
  setMinimumSize(1, 1);
  setFocusProxy(play_);
}

void SchedulePane::SetShape(const PanelDots::PanelShape& shape) {
  shape_ = shape;
  TakeRoom();
  Arrange();
}

void SchedulePane::SetName(const QString& name) {
  picture_->setAccessibleName(name);
  scroll_->setAccessibleName(name);
  note_->setAccessibleDescription(name);
}

void SchedulePane::ShowNote(const QString& note) {
  note_->setText(note);
  note_->setVisible(!note.isEmpty());
  ShowScroll();
}

void SchedulePane::ShowScroll() {
  scroll_->setVisible(!HasNote() && shape_.rows > 0 && !is_collapsed_);
}

void SchedulePane::Arrange() {
  ShowScroll();
  if (shape_.rows == 0) return;
  const QSizeF dots = PanelDots::SizeInDots(shape_);
  const double by_width =
      PanelDots::DotDistance(QSizeF(width(), kEndless), shape_, devicePixelRatioF());
  const bool is_too_wide = by_width < kLeastPitch;
  const int bar = is_too_wide ? scroll_->horizontalScrollBar()->sizeHint().height() : 0;
  const int below = controls_->sizeHint().height() + layout()->spacing();
  const int room = std::max(height() - below, 1);
  const double pitch = is_too_wide ? kScrolledPitch : by_width;
  const int wanted = qCeil(dots.height() * pitch) + bar;
  picture_->setMinimumWidth(is_too_wide ? qCeil(dots.width() * pitch) : 0);
  // The tab key stops only where the arrow keys have something to scroll.
  scroll_->setFocusPolicy(is_too_wide ? Qt::StrongFocus : Qt::NoFocus);
  scroll_->setFixedHeight(std::min(wanted, room));
  note_->setFixedHeight(std::min(wanted, room));
}

QSplitter* SchedulePane::Splitter() const { return static_cast<QSplitter*>(parentWidget()); }

void SchedulePane::TakeRoom() {
  const QWidget* table = Splitter()->widget(0);
  const int least = std::max(table->minimumWidth(), table->minimumSizeHint().width());
  const int all = Splitter()->width() - Splitter()->handleWidth();
  const int room = all - least;
  setVisible(room >= std::max(kLeastWidth, controls_->minimumSize().width()));
  if (was_moved_ || isHidden()) return;
  const int wanted = qCeil(PanelDots::SizeInDots(shape_).width() * kUsualPitch);
  const int share = std::min(room, std::min(std::max(wanted, kUsualWidth), all / 2));
  Splitter()->setSizes({all - share, share});
}

void SchedulePane::OnMoved() {
  was_moved_ = true;
  const int width = Splitter()->sizes().at(Splitter()->indexOf(this));
  if (is_collapsed_ == (width == 0)) return;
  is_collapsed_ = width == 0;
  Arrange();
  Q_EMIT Seen(!is_collapsed_);
}

bool SchedulePane::eventFilter(QObject* object, QEvent* event) {
  if (object == parentWidget() && event->type() == QEvent::Resize) TakeRoom();
  return QWidget::eventFilter(object, event);
}

void SchedulePane::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange();
}

void SchedulePane::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Q_EMIT Seen(true);
}

void SchedulePane::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  // One that is minimised comes back as it was.
  if (!event->spontaneous()) Q_EMIT Seen(false);
}
