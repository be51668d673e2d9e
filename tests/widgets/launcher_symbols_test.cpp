// The colours of the symbols on the launcher's buttons.
#include <algorithm>
#include <cmath>

#include <QImage>
#include <QPalette>

#include <gtest/gtest.h>

#include "widgets/caption_button.h"

namespace {

double RelativeLuminance(QColor colour) {
  const auto linear = [](int part) {
    const double share = part / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) +
         0.0722 * linear(colour.blue());
}

double Ratio(QColor one, QColor other) {
  const double a = RelativeLuminance(one);
  const double b = RelativeLuminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

TEST(LauncherSymbolsTest, TheRatioOfTheTestsIsTheKnownOne) {
  EXPECT_NEAR(Ratio(Qt::black, Qt::white), 21, 0.001);
  EXPECT_NEAR(Ratio(QColor(118, 118, 118), Qt::white), 4.54, 0.01);
}

struct Theme {
  const char* name;
  QColor button;
  QColor text;
  QColor highlight;
};

void PrintTo(const Theme& theme, std::ostream* out) { *out << theme.name; }

const Theme kThemes[] = {
    {"Light", {239, 239, 239}, Qt::black, {48, 140, 198}},
    {"LightYellow", {239, 239, 239}, Qt::black, {255, 230, 90}},
    {"LightOrange", {239, 239, 239}, {60, 60, 60}, {233, 84, 32}},
    {"Dark", {53, 53, 53}, Qt::white, {42, 130, 218}},
    {"DarkBlue", {49, 54, 59}, {239, 240, 241}, {20, 30, 90}},
    {"HighContrastBlack", Qt::black, Qt::white, {0, 0, 128}},
    {"HighContrastInverse", Qt::black, Qt::yellow, Qt::black},
    {"HighContrastWhite", Qt::white, Qt::black, Qt::white},
    {"Grey", {128, 128, 128}, Qt::black, {120, 120, 120}},
    {"ColouredButtons", {70, 110, 160}, {90, 120, 150}, {200, 60, 60}},
};

class ThemedSymbol : public testing::TestWithParam<Theme> {
 protected:
  /// A button as large as the launcher's, without a caption.
  static QImage Picture(LauncherSymbol symbol, bool down = false) {
    CaptionButton button;
    QPalette palette;
    palette.setColor(QPalette::Button, GetParam().button);
    palette.setColor(QPalette::ButtonText, GetParam().text);
    palette.setColor(QPalette::Highlight, GetParam().highlight);
    button.setPalette(palette);
    button.SetSymbol(symbol);
    button.setDown(down);
    button.resize(119, 116);
    return button.grab().toImage();
  }

  static void ExpectReadable(bool down) {
    const QImage symbol = Picture(LauncherSymbol::kExit, down);
    const QImage ground = Picture(LauncherSymbol::kNone, down);
    const QPoint stroke(59, 27);   // inside the upright line, which has the accent's colour
    const QPoint outline(59, 51);  // inside the foot of the ring
    for (const QPoint& place : {stroke, outline}) {
      const QColor seen = symbol.pixelColor(place * symbol.devicePixelRatio());
      const QColor behind = ground.pixelColor(place * ground.devicePixelRatio());
      EXPECT_GE(Ratio(seen, behind), 3) << place.y() << ": " << seen.name().toStdString() << " on "
                                        << behind.name().toStdString();
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Palettes, ThemedSymbol, testing::ValuesIn(kThemes),
                         [](const auto& theme) { return std::string(theme.param.name); });

TEST_P(ThemedSymbol, StandsOutFromItsGroundByThreeToOne) { ExpectReadable(false); }

TEST_P(ThemedSymbol, StandsOutFromAPressedButtonByThreeToOne) { ExpectReadable(true); }

TEST(LauncherSymbolsTest, AColourThatCanBeReadStaysAsItIs) {
  EXPECT_EQ(ReadableOn({Qt::white}, QColor(0, 0, 160)), QColor(0, 0, 160));
  EXPECT_EQ(ReadableOn({QColor(53, 53, 53)}, QColor(250, 200, 80)), QColor(250, 200, 80));
}

TEST(LauncherSymbolsTest, AColourThatCannotBeReadKeepsItsHue) {
  const QColor on_light = ReadableOn({QColor(239, 239, 239)}, QColor(255, 230, 90));
  EXPECT_NEAR(on_light.hue(), QColor(255, 230, 90).hue(), 3);
  EXPECT_LT(on_light.lightness(), QColor(255, 230, 90).lightness());
}

TEST(LauncherSymbolsTest, WhereNoColourCanBeReadItIsBlackOrWhite) {
  EXPECT_EQ(ReadableOn({Qt::white, Qt::black, Qt::red}, Qt::red), QColor(Qt::white));
}

}  // namespace
