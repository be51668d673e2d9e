#include "page/row_area.h"

#include <algorithm>
#include <cstdlib>

#include <QCoreApplication>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "language/further_texts.h"
#include "page/row_ground.h"
#include "widgets/fitted_text.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::kCellWidth;
using Brivon1::kMaxRows;
using Brivon1::PageMessage;
using ModuleLanguage::TranslateText;

constexpr int kFirstLeft = 5;
constexpr int kRowDistance = kCellHeight + 4;
constexpr int kTop = 4;
constexpr int kLeastRows = 3;
constexpr int kLeastWidth = RowWidth(20);
constexpr int kTallestNumber = 14;

/// What stays in sight beside the cursor, in pixels.
constexpr int kSight = 2 * kCellWidth;

/// Where row `number` begins in the page, and the height of a page of `rows` rows.
constexpr int TopOf(int number) { return kTop + (number - 1) * kRowDistance; }
constexpr int HeightOf(int rows) { return TopOf(rows + 1); }

/// Lets `bar` show that of `whole` pixels `seen` are in sight, from `place` on.
void ShowPlace(QScrollBar& bar, int whole, int seen, int place) {
  const QSignalBlocker blocker(bar);
  bar.setRange(0, std::max(0, whole - seen));
  bar.setPageStep(seen);
  bar.setValue(place);
  bar.setEnabled(bar.maximum() > 0);
}

QString Numbered(QLatin1String name, int number) { return u"%1(%2)"_s.arg(name).arg(number); }

QString RowName(const QString& row, int number) { return u"%1 %2"_s.arg(row).arg(number); }

}  // namespace

RowArea::RowArea(QWidget* parent)
    : QWidget(parent),
      clip_(new QFrame(this)),
      clipped_(new RowGround(clip_)),
      gutter_(new QWidget(this)),
      vertical_bar_(new QScrollBar(Qt::Vertical, this)),
      left_(kFirstLeft) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  clip_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  auto* frame_layout = new QHBoxLayout(clip_);
  frame_layout->setContentsMargins(0, 0, 0, 0);
  frame_layout->addWidget(clipped_);
  clipped_->setMinimumWidth(kLeastWidth);
  clipped_->installEventFilter(this);

  QFont font = gutter_->font();
  font.setPixelSize(std::min(kTallestNumber, QFontInfo(font).pixelSize()));
  gutter_->setFont(font);
  gutter_->setFixedWidth(QFontMetrics(font).horizontalAdvance(u" 12 "_s));
  for (int number = 1; number <= kMaxRows; ++number) {
    auto* label = new QLabel(QString::number(number), gutter_);
    label->setObjectName(Numbered("lblRowNumber"_L1, number));
    label->setAlignment(Qt::AlignCenter);
    label->hide();
    numbers_[static_cast<std::size_t>(number - 1)] = label;
  }

  vertical_bar_->setObjectName(u"scrollPage"_s);
  vertical_bar_->setSingleStep(kRowDistance);
  vertical_bar_->hide();
  connect(vertical_bar_, &QScrollBar::valueChanged, this, &RowArea::SetTop);

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  const int frame = clip_->frameWidth();
  auto* gutter_layout = new QVBoxLayout;  // cuts the numbers where the frame cuts the rows
  const int space = style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing);
  gutter_layout->setContentsMargins(0, frame, space, frame);
  gutter_layout->addWidget(gutter_);
  layout->addLayout(gutter_layout);
  layout->addWidget(clip_, 1);
  layout->addWidget(vertical_bar_);
}

void RowArea::Build(const Brivon1::PageMessage& page, QScrollBar& scroll_bar) {
  page_ = &page;
  scroll_bar_ = &scroll_bar;
  scroll_bar.setSingleStep(kCellWidth);
  connect(&scroll_bar, &QScrollBar::valueChanged, this,
          [this](int value) { SetLeft(kFirstLeft - value); });
  for (int number = 1; number <= kMaxRows; ++number) {
    auto* surface = new RowSurface(page.Row(number), clipped_);
    surface->setObjectName(Numbered("Picture1"_L1, number));
    surface->setAccessibleName(RowName(u"Row"_s, number));
    surface->hide();
    surfaces_[static_cast<std::size_t>(number - 1)] = surface;
  }
  UpdateScrollBar();
}

void RowArea::NameRows(const QString& row_caption, const QString& symbol_caption, RowWords words) {
  const QString symbol = SpokenCaption(symbol_caption);
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    words.placeholders.append({PageMessage::Graphic(letter), symbol + u' ' + QLatin1Char(letter)});
  }
  words.placeholders.append({PageMessage::kDate.toByteArray(), TranslateText(u"Date"_s)});
  words.placeholders.append({PageMessage::kTime.toByteArray(), TranslateText(u"Time"_s)});
  const QString row = SpokenCaption(row_caption);
  for (int number = 1; number <= kMaxRows; ++number) {
    Surface(number).setAccessibleName(RowName(row, number));
    Surface(number).SetWords(words);
  }
  scroll_bar_->setAccessibleName(row);
  vertical_bar_->setAccessibleName(row);
}

void RowArea::LayOutRows() {
  for (int number = 1; number <= kMaxRows; ++number) {
    RowSurface& surface = Surface(number);
    const bool shown = number <= page_->Rows();
    numbers_[static_cast<std::size_t>(number - 1)]->setVisible(shown);
    surface.setVisible(shown);
    surface.resize(RowWidth(page_->MaxCharsPerRow()), kCellHeight);
    surface.RedrawRow();
  }
  SetLeft(kFirstLeft);
  SetTop(0);
  FitHeight();
  MarkCurrentRow();
}

int RowArea::RowsToShow() const {
  return page_ != nullptr && page_->Rows() > 0 ? page_->Rows() : kMaxRows;
}

QSize RowArea::SizeFor(int rows) const {
  return {layout()->minimumSize().width(), HeightOf(rows) + 2 * clip_->frameWidth()};
}

QSize RowArea::sizeHint() const { return SizeFor(RowsToShow()); }

QSize RowArea::minimumSizeHint() const { return SizeFor(std::min(RowsToShow(), kLeastRows)); }

void RowArea::FitHeight() {
  setMaximumHeight(sizeHint().height());
  vertical_bar_->setVisible(height() < sizeHint().height());
  updateGeometry();
}

void RowArea::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  vertical_bar_->setVisible(height() < sizeHint().height());
}

void RowArea::RedrawCurrentRow() {
  const int current = page_->CurrentRow();
  if (current != drawn_row_) Surface(drawn_row_).RedrawRow();
  Surface(current).RedrawRow();
  drawn_row_ = current;
}

void RowArea::RedrawRows() {
  for (int number = 1; number <= page_->Rows(); ++number) Surface(number).RedrawRow();
}

void RowArea::MoveRows(int pixels) { SetLeft(left_ + pixels); }

void RowArea::SetLeft(int left) {
  left_ = left;
  for (RowSurface* surface : surfaces_) surface->move(left_, surface->y());
  PlaceMarks();
  UpdateScrollBar();
  Q_EMIT Moved();
}

void RowArea::SetTop(int top) {
  top_ = top;
  for (int number = 1; number <= kMaxRows; ++number) {
    const int y = TopOf(number) - top_;
    Surface(number).move(left_, y);
    numbers_[static_cast<std::size_t>(number - 1)]->setGeometry(0, y, gutter_->width(),
                                                                kCellHeight);
  }
  PlaceMarks();
  UpdateScrollBar();
}

void RowArea::MarkDotsEnd(int number, std::optional<qsizetype> characters) {
  dots_ends_[static_cast<std::size_t>(number - 1)] = characters;
  PlaceMark(number);
}

void RowArea::PlaceMarks() {
  for (int number = 1; number <= kMaxRows; ++number) PlaceMark(number);
}

void RowArea::PlaceMark(int number) {
  const std::optional<qsizetype> end = dots_ends_[static_cast<std::size_t>(number - 1)];
  const bool is_marked = end && number <= page_->Rows();
  clipped_->SetEnd(number, Surface(number).geometry(),
                   is_marked ? std::optional(static_cast<int>(*end) * kCellWidth) : std::nullopt);
}

PagePreview::Sight RowArea::Sight() const {
  return {-left_, clipped_->width(), RowWidth(page_->MaxCharsPerRow())};
}

void RowArea::UpdateScrollBar() {
  if (page_ == nullptr) return;
  const bool is_page = page_->Rows() > 0;
  const int page_width = is_page ? 2 * kFirstLeft + RowWidth(page_->MaxCharsPerRow()) : 0;
  const int page_height = is_page ? HeightOf(page_->Rows()) : 0;
  ShowPlace(*scroll_bar_, page_width, clipped_->width(), kFirstLeft - left_);
  ShowPlace(*vertical_bar_, page_height, clipped_->height(), top_);
}

void RowArea::MarkCurrentRow() {
  for (int number = 1; number <= kMaxRows; ++number) {
    const bool current = number == page_->CurrentRow() && number <= page_->Rows();
    Surface(number).setFocusPolicy(current ? Qt::StrongFocus : Qt::ClickFocus);
    QLabel* label = numbers_[static_cast<std::size_t>(number - 1)];
    label->setAutoFillBackground(current);
    label->setBackgroundRole(current ? QPalette::Highlight : QPalette::NoRole);
    label->setForegroundRole(current ? QPalette::HighlightedText : QPalette::NoRole);
  }
}

int RowArea::LastLeft(int width) const {
  return std::min(width - RowWidth(page_->MaxCharsPerRow()) - kFirstLeft, kFirstLeft);
}

void RowArea::FollowCursor() {
  FollowRow();
  const int width = clipped_->width();
  const int cursor = static_cast<int>(page_->Row(page_->CurrentRow()).Cursor()) * kCellWidth;
  const bool in_sight = cursor + left_ >= 0 && cursor + left_ < width;
  const bool within_page = left_ <= kFirstLeft && left_ >= LastLeft(width);
  if (in_sight && !within_page) return;  // moved there by hand
  const RowSurface::Hold hold = Surface(page_->CurrentRow()).MouseHold();
  if (hold == RowSurface::Hold::kPressed || hold == RowSurface::Hold::kPressedTwice) return;
  // Some room on both sides of the cursor, but none beyond the ends of the page.
  const int sight = hold == RowSurface::Hold::kDragging ? 0 : kSight;
  const int left = std::clamp(left_, sight - cursor, std::max(width - sight, sight) - cursor);
  SetLeft(std::clamp(left, LastLeft(width), kFirstLeft));
}

void RowArea::FollowRow() {
  const int height = clipped_->height();
  // From the one where the row is the last in sight to the one where it is the first.
  const int most = TopOf(page_->CurrentRow()) - kTop;
  const int least = std::min(HeightOf(page_->CurrentRow()) - height, most);
  const int end = std::max(0, HeightOf(page_->Rows()) - height);
  const int top = std::clamp(std::clamp(top_, least, most), 0, end);
  if (top != top_) SetTop(top);
}

bool RowArea::eventFilter(QObject* object, QEvent* event) {
  if (object == clipped_ && event->type() == QEvent::Resize && page_ != nullptr) {
    // A page that was shown to its end is not torn from the border of a wider area.
    const int width_before = static_cast<QResizeEvent*>(event)->oldSize().width();
    const bool at_end = left_ <= kFirstLeft && left_ >= LastLeft(width_before);
    SetLeft(at_end ? std::max(left_, LastLeft(clipped_->width())) : left_);
    FollowRow();
  }
  return QWidget::eventFilter(object, event);
}

void RowArea::wheelEvent(QWheelEvent* event) {
  const QPoint turned = event->angleDelta();
  const bool is_sideways = std::abs(turned.x()) > std::abs(turned.y());
  const bool moves_sideways = is_sideways || event->modifiers().testFlag(Qt::ShiftModifier) ||
                              vertical_bar_->maximum() == 0;
  // With its modifiers the bar would turn whole pages, and with both directions none.
  QWheelEvent turn(event->position(), event->globalPosition(), event->pixelDelta(),
                   is_sideways ? QPoint(turned.x(), 0) : QPoint(0, turned.y()), event->buttons(),
                   Qt::NoModifier, event->phase(), event->inverted());
  QCoreApplication::sendEvent(moves_sideways ? scroll_bar_ : vertical_bar_, &turn);
  event->setAccepted(turn.isAccepted());
}
