// The window of two panels, at a time that is moved by hand.
#pragma once

#include <QAccessible>
#include <QLabel>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include "support/led_of.h"
#include "support/shown_text.h"
#include "support/wait_until.h"
#include "window/panel_window.h"

namespace VirtualPanel {

/// What the label shows: its text without what the toolkit takes for markup in it.
inline QString Shown(QLabel* label) {
  return QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name);
}

class WindowTest : public testing::Test {
 protected:
  void SetUp() override {
    window_.resize(900, 700);
    window_.show();
  }

  void Receive(QByteArrayView bytes) {
    const QSignalSpy refreshed(&window_, &PanelWindow::Refreshed);
    engine_.Receive(bytes);
    ASSERT_TRUE(WaitUntil([&] { return refreshed.count() > 0; }));
  }

  template <typename Widget>
  Widget* Find(const char* name) {
    Widget* widget = window_.findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }

  // How many dots of a row have an LED of this colour.
  static int Count(PanelView* view, int row, Led led) {
    const QImage image = view->grab().toImage();
    const PanelDots::PanelShape& shape = view->Picture().shape;
    const QRectF place = PanelDots::RowRect(view->size(), shape, row);
    const double dot = PanelDots::DotDistance(view->size(), shape);
    int count = 0;
    for (int column = 0; column < shape.columns; ++column) {
      for (int height = 0; height < PanelDots::kRowDots; ++height) {
        const QPointF middle = place.topLeft() + QPointF(column + 0.5, height + 0.5) * dot;
        if (LedOf(image.pixelColor(static_cast<int>(middle.x()), static_cast<int>(middle.y()))) ==
            led) {
          ++count;
        }
      }
    }
    return count;
  }

  // A cell of the traffic.
  QString Text(int row, int column, Qt::ItemDataRole role = Qt::DisplayRole) {
    return Find<QTableView>("traffic")->model()->index(row, column).data(role).toString();
  }

  QString Facts(const char* name) { return Find<QLabel>(name)->text(); }

  QDateTime now_{QDate(2026, 11, 21), QTime(10, 30, 0)};
  PanelEngine engine_{{{26, 4, 96, true}, {3, 2, 48, false}}, [this] { return now_; }};
  PanelWindow window_{&engine_};
};

}  // namespace VirtualPanel
