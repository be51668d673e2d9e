// Check boxes and option buttons that wrap a long caption.
#pragma once

#include <QCheckBox>
#include <QRadioButton>

/// What both have in common; `Button` is the toolkit's class.
template <typename Button>
class WrappedOption : public Button {
 public:
  explicit WrappedOption(const QString& caption, QWidget* parent = nullptr)
      : Button(caption, parent) {
    this->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }
  explicit WrappedOption(QWidget* parent = nullptr) : WrappedOption(QString(), parent) {}

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& position) const override { return this->rect().contains(position); }

 private:
  /// The width of what stands beside the caption.
  int Beside() const;
};

using CaptionCheckBox = WrappedOption<QCheckBox>;
using CaptionRadioButton = WrappedOption<QRadioButton>;
