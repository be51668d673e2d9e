// The line of a schedule's hour and minute: one text, whose wide gaps hold the boxes to type in.
#pragma once

#include <QLabel>
#include <QStringList>

/// Its direct children are the boxes; they stand in the gaps of the text (two blanks or more) in
/// their order, whatever the font.
class TimeLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QStringList Pieces() const;
  QStringList ShownPieces() const;  // cut where there is no room for all of them
  QList<QWidget*> Boxes() const;
  int BoxWidth() const;
};
