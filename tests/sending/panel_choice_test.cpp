// The list of panels from which a window that sends has one chosen.
#include "sending/panel_choice.h"

#include <random>

#include <QComboBox>

#include <gtest/gtest.h>

#include "command/frmCommand.h"
#include "support/program_folder.h"
#include "support/wheel.h"

using namespace Qt::StringLiterals;

namespace {

TEST(PanelChoiceTest, NoPanelIsSelectedUntilOneIsChosen) {
  const TemporaryProgramFolder folder;
  folder.Configure("[Dimension Config]\r\nID001=4x96,Tri,10.0.0.1:80\r\n");
  QComboBox list;
  const auto* choice = new PanelChoice(&list);
  EXPECT_EQ(list.count(), 1);
  EXPECT_FALSE(choice->Selected());
  list.setCurrentIndex(0);
  EXPECT_TRUE(choice->Selected());
}

TEST(PanelChoiceTest, ThePanelIsKnownByItsIdWhateverItsLineSays) {
  const TemporaryProgramFolder folder;
  folder.Configure(
      "[Dimension Config]\r\nID007=4x96,Tri,panel.local:99999\r\n"
      "ID200=12x999,Mono,10.0.0.200\r\n");
  QComboBox list;
  const auto* choice = new PanelChoice(&list, Brivon1::ShortPanelListLine);
  EXPECT_EQ(list.itemText(0), u"ID007     4x96     Tri-Color"_s);
  list.setItemText(0, u"ID001     1x8     Mono-Color     1.2.3.4:5"_s);
  list.setCurrentIndex(0);
  const auto first = choice->Selected();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->id, 7);
  EXPECT_EQ(first->rows, 4);
  EXPECT_EQ(first->columns, 96);
  EXPECT_EQ(first->endpoint.host, "nel.local");
  EXPECT_FALSE(first->endpoint.IsUsable());
  list.setCurrentIndex(1);
  const auto second = choice->Selected();
  ASSERT_TRUE(second);
  EXPECT_EQ(second->id, 200);
  EXPECT_EQ(second->rows, 12);
  EXPECT_EQ(second->columns, 999);
  EXPECT_EQ(second->endpoint.host, "10.0.0.200");
  EXPECT_EQ(second->endpoint.port, 80);
}

TEST(PanelChoiceTest, AnyConfigurationGivesAListOfItsConfiguredPanels) {
  const TemporaryProgramFolder folder;
  const QList<QByteArray> pieces = {"[Dimension Config]",
                                    "[Communication]",
                                    "\r\n",
                                    "\n",
                                    "ID00",
                                    "1",
                                    "2",
                                    "=",
                                    "x",
                                    ",",
                                    "Tri",
                                    "Mono",
                                    ".",
                                    ":",
                                    "99999999999",
                                    "-",
                                    " ",
                                    "SendMode",
                                    "TCPIP",
                                    "\"",
                                    ";",
                                    QByteArray(1, 0),
                                    "\xff",
                                    "\x80",
                                    "Com2",
                                    QByteArray(300, 'x')};
  std::mt19937 random(1);
  int listed = 0;
  for (int round = 0; round < 300; ++round) {
    QByteArray ini = "[Dimension Config]\r\nID001=4x96,Tri,1.2.3.4:80\r\nID002=2x";
    for (int piece = 0; piece < 60; ++piece) {
      ini += pieces[static_cast<qsizetype>(random() % static_cast<unsigned>(pieces.size()))];
    }
    folder.Configure(ini);
    const frmCommand window;
    const auto* list = window.findChild<QComboBox*>(u"ComboID"_s);
    ASSERT_EQ(list->count(), Brivon1::PanelListLines(Brivon1::Store()).size());
    ASSERT_GE(list->count(), 1);
    ASSERT_LE(window.minimumSizeHint().width(), 800);
    listed += list->count();
  }
  EXPECT_GT(listed, 300) << "some of them configure further panels";
}

TEST(PanelChoiceTest, AWheelOverItChoosesNoOtherPanel) {
  TemporaryProgramFolder folder;
  folder.Configure("[Dimension Config]\r\nID001=4x96,Tri\r\nID002=4x96,Tri\r\n");
  frmCommand window;
  window.show();
  auto* list = window.findChild<QComboBox*>(u"ComboID"_s);
  ASSERT_EQ(list->currentIndex(), 0);
  TurnWheel(list);
  EXPECT_EQ(list->currentIndex(), 0);
}

}  // namespace
