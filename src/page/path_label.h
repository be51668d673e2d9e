// A label for a file's path, which may be longer than its window is wide: it shows the beginning
// and the end of a long path, and never makes its window wider.
#pragma once

#include <QLabel>

class PathLabel : public QLabel {
  Q_OBJECT

 public:
  explicit PathLabel(QWidget* parent = nullptr);

  /// Shows `path`, whole in text() and in the tool tip.
  void SetPath(const QString& path);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};
