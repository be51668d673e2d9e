#include "widgets/caption_room.h"

#include <algorithm>

#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QWidget>

#include "widgets/fitted_text.h"

namespace {

// What a desktop puts around a window.
constexpr QSize kFrame(16, 40);

QSize RoomFor(const QWidget& window) { return window.screen()->availableSize() - kFrame; }

class CaptionRoom : public QObject {
 public:
  explicit CaptionRoom(QWidget* window) : QObject(window), window_(window) {
    window->installEventFilter(this);
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Show && !event->spontaneous()) {
      Shrink();
      Open();
    } else if (event->type() == QEvent::LayoutRequest) {
      Shrink();
    }
    if (event->type() == QEvent::Show || event->type() == QEvent::LayoutRequest ||
        event->type() == QEvent::Resize) {
      SetMinimum();
    }
    return QObject::eventFilter(object, event);
  }

 private:
  const QLayout& Layout() const { return *window_->layout(); }
  QSize Room() const { return RoomFor(*window_); }

  bool FitsInWidth() const { return Layout().totalMinimumSize().width() <= Room().width(); }
  bool FitsAt(int width) const {
    return Layout().totalMinimumHeightForWidth(width) <= Room().height();
  }
  bool Fits() const { return FitsInWidth() && FitsAt(Room().width()); }

  // What got smaller stays so while the window is open, so that its letters do not jump.
  void Shrink() {
    if (scale_ == 1) font_ = window_->font();
    const qreal before = scale_;
    const bool was_too_wide = !FitsInWidth();
    while (is_shrinkable_ && !Fits() && scale_ * kSmallerScale >= kSmallestScale) {
      SetScale(scale_ * kSmallerScale);
    }
    if (!is_shrinkable_ || Fits()) return;
    is_shrinkable_ = false;
    if (!was_too_wide) SetScale(before);  // it is not the letters that are too high
  }

  void SetScale(qreal scale) {
    scale_ = scale;
    window_->setFont(scale == 1 ? font_ : Scaled(font_, scale));
    ForgetSizes();
  }

  // A list keeps the least size of its former font until its style changes, a layout what it
  // reckoned.
  void ForgetSizes() {
    for (QComboBox* list : window_->findChildren<QComboBox*>()) {
      QEvent changed(QEvent::StyleChange);
      QCoreApplication::sendEvent(list, &changed);
    }
    for (QLayout* layout : window_->findChildren<QLayout*>()) layout->invalidate();
  }

  // Gives the window its first size: that of its design, or what the captions need beyond it.
  void Open() {
    const bool designed = window_->testAttribute(Qt::WA_Resized);
    int width = Layout().totalSizeHint().width();
    if (designed) width = std::max(width, window_->width());
    if (!FitsAt(width)) width = Room().width();
    width = std::min(width, Room().width());
    const int height = designed
                           ? std::max(window_->height(), Layout().totalMinimumHeightForWidth(width))
                           : Layout().totalHeightForWidth(width);
    // That of the letters before they were made smaller. With none, the layout would set its own.
    window_->setMinimumSize(1, 1);
    window_->resize(width, std::min(height, Room().height()));
  }

  void SetMinimum() {
    const int width = LeastWidth();
    const int height = Layout().totalMinimumHeightForWidth(std::max(width, window_->width()));
    window_->setMinimumSize(width, std::min(height, Room().height()));
  }

  // The narrowest window whose wrapped captions are not higher than the screen.
  int LeastWidth() const {
    int wide = Room().width();
    int narrow = std::min(Layout().totalMinimumSize().width(), wide);
    if (FitsAt(narrow) || !FitsAt(wide)) return narrow;
    while (wide - narrow > 1) {
      const int between = (narrow + wide) / 2;
      (FitsAt(between) ? wide : narrow) = between;
    }
    return wide;
  }

  QWidget* window_;
  QFont font_;  // at scale 1
  qreal scale_ = 1;
  bool is_shrinkable_ = true;
};

}  // namespace

bool IsScreenTooLow(QWidget& window) {
  window.ensurePolished();
  const QSize room = RoomFor(window);
  return window.layout()->totalMinimumHeightForWidth(room.width()) > room.height();
}

void GiveCaptionsRoom(QWidget* window) {
  if (window->layout() != nullptr) new CaptionRoom(window);
}
