#include "scrolling/scrolling_preview.h"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <QtMath>

#include "language/further_texts.h"
#include "panel_dots/message_text.h"
#include "panel_dots/seen_cells.h"
#include "row/coded_text.h"
#include "store/configuration_store.h"
#include "widgets/fitted_text.h"
#include "widgets/ignore_wheel.h"
#include "widgets/play_button.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::PageRow;
using PanelDots::Cell;
using PanelDots::PanelPicture;

constexpr int kUsualColumns = 96;
constexpr int kFewestColumns = 10;
constexpr int kMostColumns = 3000;

/// Larger dots do not help anybody.
constexpr double kMostPitch = 4;

/// A size that is no bound.
constexpr double kEndless = 1e6;

/// The dot columns of the first panel that is configured.
int ConfiguredColumns() {
  const auto& panels = Brivon1::Store().panels;
  const auto* panel = std::find_if(panels.begin(), panels.end(),
                                   [](const auto& entry) { return entry.IsConfigured(); });
  return panel == panels.end() ? kUsualColumns : panel->columns;
}

QList<Cell> CellsOf(const PageRow& row) { return PanelDots::ParseCells(Brivon1::CodedText(row)); }

/// The message from a character on, as far as so many dot columns show it.
QList<Cell> CellsFrom(const PageRow& message, qsizetype first, int columns,
                      const QDateTime& clock) {
  const PanelDots::RowLook look{true, true, clock};
  return PanelDots::UpToCut(
      PanelDots::BeginningOf(
          message.Length() - first, columns, look,
          [&](qsizetype count) { return CellsOf(message.Part(first, first + count)); }),
      columns, look);
}

}  // namespace

ScrollingPreview::ScrollingPreview(QWidget* parent)
    : QWidget(parent),
      picture_(new PanelDots::LivePicture(this)),
      play_(new PlayButton(this)),
      columns_label_(new FittedLabel(u"Dot columns:"_s, this)),
      columns_(new QSpinBox(this)) {
  picture_->setObjectName(u"picPreview"_s);
  columns_label_->setObjectName(u"lblColumns"_s);
  columns_->setObjectName(u"spinColumns"_s);
  columns_label_->setBuddy(columns_);
  columns_->setRange(kFewestColumns, kMostColumns);
  columns_->setValue(ConfiguredColumns());
  columns_->setFocusPolicy(Qt::TabFocus);
  IgnoreWheel(columns_);
  play_->setFocusPolicy(Qt::TabFocus);
  picture_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  picture_->installEventFilter(this);
  auto* controls = new QHBoxLayout;
  controls->addWidget(play_);
  controls->addWidget(columns_label_);
  controls->addWidget(columns_);
  controls->addStretch();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(picture_);
  layout->addLayout(controls);
  connect(play_, &QPushButton::clicked, this, &ScrollingPreview::RunOrRest);
  connect(columns_, &QSpinBox::valueChanged, this, [this] {
    Arrange();
    is_running_ ? Run() : Rest();
  });
}

void ScrollingPreview::Build(const PageRow& message, std::function<qsizetype()> first,
                             TimeSource now) {
  message_ = &message;
  first_ = std::move(first);
  now_ = std::move(now);
  picture_->SetTimeSource(now_);
  picture_->setAccessibleName(ModuleLanguage::TranslateText(u"Preview on a panel"_s));
}

PanelDots::PanelShape ScrollingPreview::Shape() const { return {1, columns_->value(), true}; }

void ScrollingPreview::Rest() {
  is_running_ = false;
  play_->ShowPlaying(false);
  if (!isVisible() || message_ == nullptr) return;
  PanelPicture picture{Shape()};
  picture.rows.insert(1, CellsFrom(*message_, first_(), columns_->value(), now_()));
  // A row that has not changed is not drawn again.
  const PanelPicture& shown = picture_->Picture();
  if (shown.shape == picture.shape && shown.rows == picture.rows &&
      shown.scrolling_texts.isEmpty()) {
    return;
  }
  picture_->ShowNow(std::move(picture));
}

void ScrollingPreview::Run() {
  is_running_ = true;
  play_->ShowPlaying(true);
  PanelPicture picture{Shape()};
  picture.scrolling_texts.insert(1, {CellsOf(*message_), now_().toMSecsSinceEpoch()});
  picture_->ShowNow(std::move(picture));
}

void ScrollingPreview::RunOrRest() { is_running_ ? Rest() : Run(); }

void ScrollingPreview::Arrange() {
  const double pitch = std::min(
      PanelDots::DotDistance(QSizeF(width(), kEndless), Shape(), devicePixelRatioF()), kMostPitch);
  picture_->setFixedHeight(std::max(qCeil(PanelDots::SizeInDots(Shape()).height() * pitch), 1));
}

bool ScrollingPreview::eventFilter(QObject* object, QEvent* event) {
  if (object == picture_ && event->type() == QEvent::MouseButtonPress &&
      static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
    RunOrRest();
    return true;
  }
  return QWidget::eventFilter(object, event);
}

void ScrollingPreview::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!is_running_) Rest();
}

void ScrollingPreview::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange();
}
