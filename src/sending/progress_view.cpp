#include "sending/progress_view.h"

#include <algorithm>

#include <QGridLayout>
#include <QKeySequence>
#include <QProgressBar>
#include <QPushButton>

#include "language/module_language.h"
#include "sending/sending_words.h"
#include "widgets/elided_label.h"
#include "widgets/kept_place.h"

using namespace Qt::StringLiterals;

using Brivon1::Progress;
using ModuleLanguage::TranslateMessage;

namespace {

/// How many of all frames have arrived, and how many there are.
struct Frames {
  int arrived = 0;
  int all = 0;
};

Frames FramesOf(const Progress& progress) {
  const int schedule = progress.files > 0 ? 1 : 0;
  if (progress.rows == 0) return {};  // a single frame arrives or does not
  const int all = std::max(progress.files, 1) * progress.rows + schedule;
  return {std::max(progress.file - 1, 0) * progress.rows + std::max(progress.row - 1, 0), all};
}

}  // namespace

ProgressView::ProgressView(QWidget* parent)
    : QWidget(parent),
      bar_(new QProgressBar(this)),
      text_(new ElidedLabel(this)),
      note_(new ElidedLabel(this)),
      stop_(new QPushButton(TranslateMessage(u"Stop"_s), this)) {
  bar_->setObjectName(u"barProgress"_s);
  text_->setObjectName(u"lblProgress"_s);
  note_->setObjectName(u"lblNote"_s);
  note_->hide();
  stop_->setObjectName(u"butStop"_s);
  bar_->setTextVisible(false);
  bar_->setAccessibleName(TranslateMessage(u"Progress"_s));
  stop_->setToolTip(QKeySequence(Qt::Key_Escape).toString(QKeySequence::NativeText));
  // The keyboard stays where it is: Enter pressed once more must not end what it has begun. The
  // button's key is Escape.
  stop_->setFocusPolicy(Qt::NoFocus);
  stop_->setAutoDefault(false);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(bar_, 0, 0);
  layout->addWidget(stop_, 0, 1);
  layout->addWidget(text_, 1, 0, 1, 2);
  layout->addWidget(note_, 2, 0, 1, 2);
  layout->setColumnStretch(0, 1);
  connect(stop_, &QPushButton::clicked, this, &ProgressView::StopPressed);
  for (QWidget* control : {static_cast<QWidget*>(bar_), static_cast<QWidget*>(stop_)}) {
    KeepPlaceWhenHidden(control);
    control->hide();
  }
}

void ProgressView::Begin() {
  if (!stop_->isHidden()) return;
  bar_->setRange(0, 0);
  seconds_left_ = -1;
  bar_->show();
  stop_->setEnabled(true);
  stop_->setCursor(Qt::ArrowCursor);
  stop_->show();
}

void ProgressView::End() {
  bar_->hide();
  stop_->hide();
  stop_->unsetCursor();
  text_->clear();
}

bool ProgressView::CanStop() const { return stop_->isVisible() && stop_->isEnabled(); }

void ProgressView::Show(const Progress& progress) {
  // A line that drains is looked at a hundred times a second.
  const qint64 seconds_left =
      progress.milliseconds_left < 0 ? -1 : (progress.milliseconds_left + 999) / 1000;
  if (seconds_left >= 0 && seconds_left == seconds_left_) return;
  seconds_left_ = seconds_left;
  const Frames frames = FramesOf(progress);
  if (frames.all > 0) {
    bar_->setRange(0, frames.all);
    bar_->setValue(frames.arrived);
  } else if (progress.is_schedule) {
    bar_->setValue(bar_->maximum() - 1);  // what is left is the schedule
  }
  text_->setText(Brivon1::ProgressText(progress));
}

void ProgressView::SetNote(const QString& note) {
  note_->setText(note);
  note_->setVisible(!note.isEmpty());
}

void ProgressView::ShowStopping() {
  stop_->setEnabled(false);
  ShowText(TranslateMessage(u"Stopping after this attempt"_s));
}

void ProgressView::ShowText(const QString& text) { text_->setText(text); }
