// The rows of the page editor above, the panel's picture below. The rows get the height that they
// ask for, the picture what is left, and it hides where that is less than it needs; but an operator
// may ask for the picture, and give it more or less.
#pragma once

#include <QSplitter>

class PreviewSplitter : public QSplitter {
  Q_OBJECT

 public:
  explicit PreviewSplitter(QWidget* parent = nullptr);

  /// Whether the picture is to be seen. It is where there is room for it, at first; who asks for it
  /// by this gets it where the rows can give the room up.
  void SetPreviewWanted(bool wanted);

  QSize sizeHint() const override;

  /// Those of the rows alone: the picture never makes its window larger.
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Arrange();

  /// What the rows ask for and can do with at the width as it is: captions beside them may wrap.
  int AskedHeight() const;
  int LeastHeight() const;

  bool is_wanted_ = true;
  bool is_asked_for_ = false;
  int given_ = 0;  // to the picture by the operator; 0: nothing yet
  bool is_arranging_ = false;
};
