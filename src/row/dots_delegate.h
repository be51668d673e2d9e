// Entries of a list that show in a panel's dots what they stand for: a colour in its colour, a size
// in its size, a symbol as its picture. The closed list shows its entry in words, as ever.
#pragma once

#include <functional>

#include <QByteArray>
#include <QFontMetrics>
#include <QPixmap>
#include <QStyledItemDelegate>

class QComboBox;

class DotsDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  /// `text_of` gives what a panel would be sent to show an entry.
  DotsDelegate(QComboBox* list, std::function<QByteArray(int entry)> text_of);

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  std::function<QByteArray(int entry)> text_of_;
};

/// What a panel shows that was sent `text`, as a picture about as high as letters of `font`, on a
/// screen with so many pixels for each unit of length.
QPixmap InDots(const QByteArray& text, const QFontMetrics& font, double pixels);

/// What a panel would be sent to show colour or size number `entry`, from 0.
QByteArray ColourInDots(int entry);
QByteArray SizeInDots(int entry);

/// Lets the lists of the colours, of the sizes and of the symbols show what their entries are.
void ShowColoursInDots(QComboBox* colours);
void ShowSizesInDots(QComboBox* sizes);
void ShowSymbolsInDots(QComboBox* symbols);
