// Whole pictures, against ones that were looked at.

#include <QDir>

#include "drawing_fixture.h"

namespace PanelDots {
namespace {

class PictureTest : public DrawingTest {
 protected:
  void Draw(int pitch, qint64 now_ms = 0, double ratio = 1) {
    const QSizeF size = SizeInDots(picture_.shape) * pitch;
    image_ = QImage((size * ratio).toSize(), QImage::Format_RGB32);
    image_.setDevicePixelRatio(ratio);
    image_.fill(Qt::white);
    QPainter painter(&image_);
    DrawPanel(&painter, size, picture_, now_ms);
  }

  // No pixel may be much brighter or darker than in the picture of that name. With
  // PANEL_DOTS_WRITE_PICTURES in the environment the picture is made anew instead: look at it.
  void ExpectPicture(const char* name) {
    const QString path = QDir(QStringLiteral(PANEL_DOTS_PICTURES)).filePath(QLatin1String(name));
    if (qEnvironmentVariableIsSet("PANEL_DOTS_WRITE_PICTURES")) {
      ASSERT_TRUE(image_.save(path)) << name;
      GTEST_SKIP() << name << " was written";
    }
    const QImage expected = QImage(path).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(image_.size(), expected.size()) << name;
    constexpr int kTolerance = 24;
    int wrong = 0;
    for (int y = 0; y < expected.height(); ++y) {
      for (int x = 0; x < expected.width(); ++x) {
        const QColor one = image_.pixelColor(x, y);
        const QColor other = expected.pixelColor(x, y);
        if (qAbs(one.red() - other.red()) > kTolerance ||
            qAbs(one.green() - other.green()) > kTolerance ||
            qAbs(one.blue() - other.blue()) > kTolerance) {
          ++wrong;
        }
      }
    }
    if (wrong > 0) {
      const QString actual = QDir::temp().filePath(QLatin1String(name));
      image_.save(actual);
      ADD_FAILURE() << wrong << " pixels differ, see " << actual.toStdString();
    }
  }
};

TEST_F(PictureTest, AllColours) {
  picture_.shape = {8, 96, true};
  SetRow(1, "<CA>Red <CB>Gre <CC>Yell");
  SetRow(2, "<CD>3D <CE>3D <CF>3D<CG> 3D");
  SetRow(3, "<CH>3D <CI>3D <CJ>On<CK> On ");
  SetRow(4, "<CL>Shadow<CM> Shadow");
  SetRow(5, "<CN>Shadow<CO> Shadow");
  SetRow(6, "<CP>Rainbow Rainbow");
  SetRow(7, "<SB><CB>Compressed <SD>Bold");
  SetRow(8, "<SC><CC>Bold <SA><CA><GA><GB><GP><GT><GZ> <SG>no");
  Draw(4);
  ExpectPicture("all_colours.png");
}

TEST_F(PictureTest, ASingleColourPanelWithACutRowInItsDarkHalf) {
  picture_.shape = {2, 48, false};
  SetRow(1, "<CJ>Too long.");
  SetRow(2, "<CB>Dark <SE>half");
  Draw(6, 700);
  ExpectPicture("single_colour_cut.png");
}

TEST_F(PictureTest, AScreenOfTwoPixels) {
  picture_.shape = {2, 48, true};
  SetRow(1, "<SC><CB>Drive");
  SetRow(2, "<CD>safely!");
  Draw(4, 0, 2);
  ExpectPicture("two_pixels.png");
}

TEST_F(PictureTest, SmallDots) {
  picture_.shape = {2, 96, true};
  SetRow(1, "<SC><CB>Drive <CD>safely!");
  SetRow(2, "<CC><DD> <DT>");
  Draw(2);
  ExpectPicture("small_dots.png");
}

TEST_F(PictureTest, APageHalfOnItsWayIn) {
  picture_.shape = {2, 48, true};
  SetRow(1, "<CA>Before");
  SetRow(2, "<CA>Before");
  Entrance entrance{DotsOf(picture_, 0), 'C', 10'000};
  SetRow(1, "<CB>Open..");
  SetRow(2, "<CJ>Open it!");
  picture_.entrance = entrance;
  Draw(5, 10'000 + kEntranceMs / 2);
  ExpectPicture("entering.png");
}

}  // namespace
}  // namespace PanelDots
