// The pages that a panel holds, side by side in one line that is scrolled when they are many: a
// click or the enter key chooses one.
#pragma once

#include <functional>
#include <optional>

#include <QAbstractListModel>
#include <QList>
#include <QListView>

namespace VirtualPanel {

class PageStrip : public QListView {
  Q_OBJECT

 public:
  // `text` says what is on a page, for its tool tip.
  explicit PageStrip(std::function<QString(int page)> text, QWidget* parent = nullptr);

  // The pages, ascending, and the one that is shown.
  void SetPages(const QList<int>& pages, std::optional<int> shown);
  int WidthOfPages() const;
  // Without the scroll bar.
  int HeightOfPages() const;
  // As wide as its pages need, at most `width`. A scroll bar, if it needs one, lies below its
  // pages.
  void Arrange(int width);

 Q_SIGNALS:
  void Chosen(int page);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  class Model;

  Model* model_;
};

}  // namespace VirtualPanel
