// A panel's dots as a terminal shows them.
#include "files/terminal_picture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using BrivonCtl::Screen;
using BrivonCtl::TerminalPicture;
using Colours = BrivonCtl::Screen::Colours;

PanelDots::PanelPicture PictureOf(QByteArrayView text, int columns) {
  PanelDots::PanelPicture picture{{1, columns, true}};
  picture.rows.insert(1, PanelDots::ParseCells(text));
  return picture;
}

std::string Shown(QByteArrayView text, int columns, const Screen& terminal) {
  return TerminalPicture(PictureOf(text, columns), terminal).toStdString();
}

TEST(TerminalPictureTest, WithoutATerminalEveryDotIsALetter) {
  EXPECT_EQ(Shown("<SA><CB>I<CA>I<CC>I", 18, {}),
            ".ggg...rrr...yyy..\n"
            "..g.....r.....y...\n"
            "..g.....r.....y...\n"
            "..g.....r.....y...\n"
            "..g.....r.....y...\n"
            "..g.....r.....y...\n"
            ".ggg...rrr...yyy..\n"
            "..................\n");
}

TEST(TerminalPictureTest, ARowThatGoesOnBehindThePanelHasAMark) {
  EXPECT_EQ(Shown("<SA><CA>II", 6, {}),
            ".rrr..\n..r...\n..r...\n..r... >\n..r...\n..r...\n.rrr..\n......\n");
}

TEST(TerminalPictureTest, TheMarkHasAColourOfItsOwnWhereThereAreColours) {
  const std::string shown = Shown("<SA><CA>II", 6, {true, Colours::k256, 80});
  EXPECT_NE(shown.find("▀\x1B[0m \x1B[0;38;5;214m▸\x1B[0m\n"), std::string::npos) << shown;
}

TEST(TerminalPictureTest, WhatIsWiderThanTheTerminalIsCut) {
  EXPECT_EQ(Shown("<SA><CA>I", 6, {false, Colours::kNone, 5}),
            ".rr\n..r\n..r\n..r >\n..r\n..r\n.rr\n...\n");
}

TEST(TerminalPictureTest, ATerminalWithoutColoursShowsTwoDotsACharacter) {
  EXPECT_EQ(Shown("<SA><CA>I", 6, {true, Colours::kNone, 80}),
            " ▀█▀  \n"
            "  █   \n"
            "  █   \n"
            " ▀▀▀  \n");
}

/// Expects that what is shown begins so.
void ExpectBeginning(const std::string& shown, const std::string& beginning) {
  EXPECT_EQ(shown.substr(0, beginning.size()), beginning);
}

TEST(TerminalPictureTest, ColoursChangeOnlyWhereTheDotsDo) {
  const std::string dark = "\x1B[0;38;5;235;48;5;235m";
  ExpectBeginning(Shown("<SA><CA>I", 6, {true, Colours::k256, 80}),
                  dark +
                      "▀\x1B[0;38;5;196;48;5;235m▀\x1B[0;38;5;196;48;5;196m▀"
                      "\x1B[0;38;5;196;48;5;235m▀" +
                      dark + "▀▀\x1B[0m\n");
  ExpectBeginning(Shown("<SA><CB>I", 6, {true, Colours::kEvery, 80}),
                  "\x1B[0;38;2;38;32;31;48;2;38;32;31m▀"
                  "\x1B[0;38;2;64;232;44;48;2;38;32;31m▀");
}

TEST(TerminalPictureTest, WhereTwoDotsACharacterDoNotFitEightShareOne) {
  EXPECT_EQ(Shown("<SA><CA>II", 12, {true, Colours::kNone, 10}),
            "⠈⡏ ⠈⡏ \n"
            "⠠⠧ ⠠⠧ \n");
  ExpectBeginning(Shown("<SA><CA>II", 12, {true, Colours::k256, 10}), "\x1B[0;38;5;196m⠈⡏");
}

TEST(TerminalPictureTest, EightDotsHaveTheColourOfMostOfThem) {
  ExpectBeginning(Shown("<SA><CJ> I", 12, {true, Colours::k256, 8}), "\x1B[0;38;5;46m⣿⣿⣿");
}

TEST(TerminalPictureTest, WhereThoseDoNotFitTheLeftPartIsShown) {
  EXPECT_EQ(Shown("<SA><CA>II", 12, {true, Colours::kNone, 5}),
            "⠈⡏  ▸\n"
            "⠠⠧ \n");
}

TEST(TerminalPictureTest, BlinkingCharactersAreLit) {
  EXPECT_EQ(Shown("<SE><CA>I", 6, {}), Shown("<SA><CA>I", 6, {}));
}

}  // namespace
