#include "page/row_area.h"

#include <algorithm>

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QScrollBar>
#include <QSignalBlocker>

#include "language/further_texts.h"
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
constexpr int kAreaHeight = kTop + kMaxRows * kRowDistance;
constexpr int kUsualWidth = RowWidth(60);
constexpr int kLeastWidth = RowWidth(20);
constexpr int kTallestNumber = 14;

/// What stays in sight beside the cursor, in pixels.
constexpr int kSight = 2 * kCellWidth;

QString Numbered(QLatin1String name, int number) { return u"%1(%2)"_s.arg(name).arg(number); }

QString RowName(const QString& row, int number) { return u"%1 %2"_s.arg(row).arg(number); }

/// A caption without what only the eye wants.
QString SpokenCaption(const QString& caption) {
  QString spoken = WithoutShortcutMark(caption).trimmed();
  if (spoken.endsWith(u':')) spoken.chop(1);
  return spoken.trimmed();
}

}  // namespace

RowArea::RowArea(QWidget* parent)
    : QWidget(parent), clip_(new QFrame(this)), clipped_(new QWidget(clip_)), left_(kFirstLeft) {
  clip_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  auto* frame_layout = new QHBoxLayout(clip_);
  frame_layout->setContentsMargins(0, 0, 0, 0);
  frame_layout->addWidget(clipped_);
  clipped_->setMinimumSize(kLeastWidth, kAreaHeight);
  clipped_->installEventFilter(this);

  auto* gutter = new QWidget(this);
  QFont font = gutter->font();
  font.setPixelSize(std::min(kTallestNumber, QFontInfo(font).pixelSize()));
  gutter->setFont(font);
  const int frame = clip_->frameWidth();
  const int width = QFontMetrics(font).horizontalAdvance(u" 12 "_s);
  gutter->setFixedSize(width, kAreaHeight + 2 * frame);
  for (int number = 1; number <= kMaxRows; ++number) {
    auto* label = new QLabel(QString::number(number), gutter);
    label->setObjectName(Numbered("lblRowNumber"_L1, number));
    label->setAlignment(Qt::AlignCenter);
    label->setGeometry(0, frame + kTop + (number - 1) * kRowDistance, width, kCellHeight);
    label->hide();
    numbers_[static_cast<std::size_t>(number - 1)] = label;
  }

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(gutter, 0, Qt::AlignTop);
  layout->addWidget(clip_, 1, Qt::AlignTop);
  clipped_->resize(kUsualWidth, kAreaHeight);
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
}

void RowArea::LayOutRows() {
  for (int number = 1; number <= kMaxRows; ++number) {
    RowSurface& surface = Surface(number);
    const bool shown = number <= page_->Rows();
    numbers_[static_cast<std::size_t>(number - 1)]->setVisible(shown);
    surface.setVisible(shown);
    surface.setGeometry(kFirstLeft, kTop + (number - 1) * kRowDistance,
                        RowWidth(page_->MaxCharsPerRow()), kCellHeight);
    surface.RedrawRow();
  }
  SetLeft(kFirstLeft);
  MarkCurrentRow();
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
  UpdateScrollBar();
}

void RowArea::UpdateScrollBar() {
  if (page_ == nullptr) return;
  const int page_width = page_->Rows() > 0 ? 2 * kFirstLeft + RowWidth(page_->MaxCharsPerRow()) : 0;
  const QSignalBlocker blocker(scroll_bar_);
  scroll_bar_->setRange(0, std::max(0, page_width - clipped_->width()));
  scroll_bar_->setPageStep(clipped_->width());
  scroll_bar_->setValue(kFirstLeft - left_);
  scroll_bar_->setEnabled(scroll_bar_->maximum() > 0);
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
  const int width = clipped_->width();
  const int cursor = static_cast<int>(page_->Row(page_->CurrentRow()).Cursor()) * kCellWidth;
  const bool in_sight = cursor + left_ >= 0 && cursor + left_ < width;
  const bool within_page = left_ <= kFirstLeft && left_ >= LastLeft(width);
  if (in_sight && !within_page) return;  // moved there by hand
  // Some room on both sides of the cursor, but none beyond the ends of the page.
  const int left = std::clamp(left_, kSight - cursor, std::max(width - kSight, kSight) - cursor);
  SetLeft(std::clamp(left, LastLeft(width), kFirstLeft));
}

bool RowArea::eventFilter(QObject* object, QEvent* event) {
  if (object == clipped_ && event->type() == QEvent::Resize && page_ != nullptr) {
    // A page that was shown to its end is not torn from the border of a wider area.
    const int width_before = static_cast<QResizeEvent*>(event)->oldSize().width();
    const bool at_end = left_ <= kFirstLeft && left_ >= LastLeft(width_before);
    SetLeft(at_end ? std::max(left_, LastLeft(clipped_->width())) : left_);
  }
  return QWidget::eventFilter(object, event);
}
