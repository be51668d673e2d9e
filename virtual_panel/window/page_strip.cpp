#include "window/page_strip.h"

#include <utility>

#include <QApplication>
#include <QKeyEvent>
#include <QPalette>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr int kPadding = 4;

}  // namespace

class PageStrip::Model : public QAbstractListModel {
 public:
  Model(std::function<QString(int)> text, PageStrip* strip)
      : QAbstractListModel(strip), text_(std::move(text)), strip_(strip) {}

  int rowCount(const QModelIndex& parent = QModelIndex()) const override {
    return parent.isValid() ? 0 : static_cast<int>(pages_.size());
  }

  QVariant data(const QModelIndex& index, int role) const override {
    const int page = pages_.value(index.row());
    const bool is_shown = page == shown_;
    const QPalette& palette = strip_->palette();
    switch (role) {
      case Qt::DisplayRole:
        return QString::number(page);
      case Qt::ToolTipRole:
        return text_(page);
      case Qt::AccessibleTextRole:
        return is_shown ? u"Page %1, shown"_s.arg(page) : u"Page %1"_s.arg(page);
      case Qt::TextAlignmentRole:
        return Qt::AlignCenter;
      case Qt::SizeHintRole:
        return CellSize();
      case Qt::BackgroundRole:
        return is_shown ? palette.brush(QPalette::Highlight) : QVariant();
      case Qt::ForegroundRole:
        return is_shown ? palette.brush(QPalette::HighlightedText) : QVariant();
      default:
        return {};
    }
  }

  QSize CellSize() const {
    const QFontMetrics metrics = strip_->fontMetrics();
    return {metrics.horizontalAdvance(u"0000"_s) + 2 * kPadding, metrics.height() + 2 * kPadding};
  }

  void Set(const QList<int>& pages, std::optional<int> shown) {
    if (pages != pages_) {
      // The keyboard's place among the pages stays.
      const std::optional<int> current =
          strip_->currentIndex().isValid() ? PageAt(strip_->currentIndex()) : std::nullopt;
      beginResetModel();
      pages_ = pages;
      shown_ = shown;
      endResetModel();
      if (current) strip_->setCurrentIndex(IndexOf(*current));
    } else if (shown != shown_) {
      shown_ = shown;
      if (!pages_.isEmpty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    }
  }

  std::optional<int> PageAt(const QModelIndex& index) const {
    return index.isValid() ? std::optional(pages_[index.row()]) : std::nullopt;
  }

  QModelIndex IndexOf(int page) const {
    const qsizetype row = pages_.indexOf(page);
    return row < 0 ? QModelIndex() : index(static_cast<int>(row));
  }

  std::optional<int> Shown() const { return shown_; }

 private:
  std::function<QString(int)> text_;
  PageStrip* strip_;
  QList<int> pages_;
  std::optional<int> shown_;
};

PageStrip::PageStrip(std::function<QString(int)> text, QWidget* parent)
    : QListView(parent), model_(new Model(std::move(text), this)) {
  setModel(model_);
  setFlow(QListView::LeftToRight);
  setWrapping(false);
  setUniformItemSizes(true);
  setSelectionMode(QAbstractItemView::NoSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(this, &QListView::clicked, this, [this](const QModelIndex& index) {
    if (const auto page = model_->PageAt(index)) Q_EMIT Chosen(*page);
  });
}

void PageStrip::SetPages(const QList<int>& pages, std::optional<int> shown) {
  const bool is_other = shown != model_->Shown();
  model_->Set(pages, shown);
  // Whoever looks for a page with the keyboard is not led away from it.
  if (is_other && shown && !hasFocus()) scrollTo(model_->IndexOf(*shown));
}

int PageStrip::WidthOfPages() const {
  return model_->rowCount() * model_->CellSize().width() + 2 * frameWidth();
}

int PageStrip::HeightOfPages() const { return model_->CellSize().height() + 2 * frameWidth(); }

void PageStrip::Arrange(int width) {
  const int wanted = WidthOfPages();
  const bool is_scrolled = wanted > width;
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  setHorizontalScrollBarPolicy(is_scrolled ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  setFixedSize(qMin(wanted, width), HeightOfPages() + (is_scrolled ? bar : 0));
}

void PageStrip::keyPressEvent(QKeyEvent* event) {
  const bool chooses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                       event->key() == Qt::Key_Space;
  const auto page = model_->PageAt(currentIndex());
  if (chooses && page) {
    Q_EMIT Chosen(*page);
  } else {
    QListView::keyPressEvent(event);
  }
}

void PageStrip::focusInEvent(QFocusEvent* event) {
  // The arrow keys go on from the page that is shown.
  if (!currentIndex().isValid() && model_->Shown()) {
    setCurrentIndex(model_->IndexOf(*model_->Shown()));
  }
  QListView::focusInEvent(event);
}

}  // namespace VirtualPanel
