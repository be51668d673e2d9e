// Lists whose entries show in a panel's dots what they stand for.
#include "row/dots_delegate.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QImage>
#include <QPainter>
#include <QSet>
#include <QStyleOptionViewItem>

#include <gtest/gtest.h>

#include "row/attributes.h"

using namespace Qt::StringLiterals;

namespace {

class DotsDelegateTest : public testing::Test {
 protected:
  DotsDelegateTest() {
    for (const char* name : Brivon1::kColourNames) list_.addItem(QLatin1String(name));
  }

  QImage Entry(int entry, QStyle::State state = QStyle::State_Enabled) {
    QStyleOptionViewItem option;
    option.initFrom(list_.view());
    option.widget = list_.view();
    option.font = list_.font();
    option.state |= state;
    const QModelIndex index = list_.model()->index(entry, 0);
    const QSize size = list_.itemDelegate()->sizeHint(option, index);
    option.rect = QRect(QPoint(0, 0), size);
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    list_.itemDelegate()->paint(&painter, option, index);
    return image;
  }

  /// The colours of lit dots that an image has: red, green, yellow.
  static QSet<char> Lit(const QImage& image) {
    QSet<char> lit;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, y);
        if (pixel.saturation() < 180 || pixel.value() < 150) continue;
        lit.insert(pixel.green() < 90 ? 'r' : pixel.red() < 120 ? 'g' : 'y');
      }
    }
    return lit;
  }

  QComboBox list_;
};

TEST_F(DotsDelegateTest, EachColourIsSeenInItsOwnLook) {
  ShowColoursInDots(&list_);
  EXPECT_EQ(Lit(Entry(0)), QSet<char>{'r'});
  EXPECT_EQ(Lit(Entry(1)), QSet<char>{'g'});
  EXPECT_EQ(Lit(Entry(2)), QSet<char>{'y'});
  EXPECT_EQ(Lit(Entry(3)), (QSet<char>{'r', 'g'}));
  EXPECT_EQ(Lit(Entry(15)), (QSet<char>{'r', 'g', 'y'})) << "the rainbow is not blue";
}

TEST_F(DotsDelegateTest, TheSelectedEntryKeepsItsColours) {
  ShowColoursInDots(&list_);
  const QImage plain = Entry(1);
  const QRect dots(6, 6, 20, 8);
  EXPECT_EQ(Entry(1, QStyle::State_Enabled | QStyle::State_Selected).copy(dots), plain.copy(dots));
}

TEST_F(DotsDelegateTest, TheClosedListIsAsWideAsEver) {
  const QSize closed = list_.sizeHint();
  const QSize least = list_.minimumSizeHint();
  ShowColoursInDots(&list_);
  EXPECT_EQ(list_.sizeHint(), closed);
  EXPECT_EQ(list_.minimumSizeHint(), least);
  EXPECT_TRUE(list_.itemIcon(0).isNull());
}

TEST_F(DotsDelegateTest, TheOpenListHasRoomForItsNamesAlsoForLongOnes) {
  list_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list_.setMinimumContentsLength(3);
  ShowColoursInDots(&list_);
  EXPECT_GE(list_.view()->minimumWidth(), list_.view()->sizeHintForColumn(0));
  const int before = list_.view()->minimumWidth();
  list_.setItemText(3, QString(60, u'x'));
  EXPECT_GT(list_.view()->minimumWidth(), before);
  EXPECT_GE(list_.view()->minimumWidth(), list_.view()->sizeHintForColumn(0));
}

TEST_F(DotsDelegateTest, AnEntryIsNoLowerThanItsLetters) {
  const auto height = [this] { return Entry(0).height(); };
  ShowColoursInDots(&list_);
  EXPECT_GE(height(), list_.fontMetrics().height());
  QFont font = list_.font();
  font.setPointSize(18);
  list_.setFont(font);
  EXPECT_GE(height(), list_.fontMetrics().height());
}

}  // namespace
