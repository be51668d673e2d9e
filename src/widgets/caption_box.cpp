#include "widgets/caption_box.h"

#include <algorithm>

#include <QHelpEvent>

#include "widgets/fitted_text.h"
#include "widgets/plain_tool_tip.h"

QSize CaptionBox::minimumSizeHint() const {
  const QSize least = QGroupBox::minimumSizeHint();
  // What the toolkit wants for a longer title, and nothing else does.
  const int beyond =
      std::max(0, fontMetrics().horizontalAdvance(title()) - CaptionWidth(font(), title()));
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): that of the layout alone
  const int width = std::max(QWidget::minimumSizeHint().width(), least.width() - beyond);
  return {width, least.height()};
}

bool CaptionBox::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && fontMetrics().horizontalAdvance(title()) > width()) {
    ShowPlainToolTip(*static_cast<QHelpEvent*>(event), title(), this);
    return true;
  }
  return QGroupBox::event(event);
}
