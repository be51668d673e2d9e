// What the configuration dialog says about its own state.
#include <QComboBox>
#include <QLabel>

#include "config/config_dialog.h"

namespace {

class ConfigNotesTest : public ConfigDialogTest {
 protected:
  bool IsSaid(const char* name) { return Find<QLabel>(name)->isVisible(); }
};

TEST_F(ConfigNotesTest, BoxesThatDifferFromTheListAreNotAddedYet) {
  Open(kTwoPanels);
  EXPECT_EQ(Find<QLabel>("lblNotAdded")->text(), Text("Not added yet"));
  EXPECT_FALSE(IsSaid("lblNotAdded"));
  Type("txtID", "5");
  EXPECT_TRUE(IsSaid("lblNotAdded"));
  Type("txtRow", "4");
  Type("txtcol", "96");
  EXPECT_TRUE(IsSaid("lblNotAdded"));
  Click("butAdd");
  EXPECT_FALSE(IsSaid("lblNotAdded"));
  Type("txtID", "6");
  EXPECT_TRUE(IsSaid("lblNotAdded"));
  Type("txtID", "005");
  EXPECT_FALSE(IsSaid("lblNotAdded"));
}

TEST_F(ConfigNotesTest, EveryBoxOfAListedPanelCountsUntilItIsAsTheListHasIt) {
  const std::tuple<const char*, const char*, const char*> changes[] = {
      {"txtID", "2", "1"},
      {"txtRow", "5", "4"},
      {"txtcol", "97", "96"},
      {"txtIPAddress", "127.0.0.2", "127.0.0.1"},
      {"txtIPPortNo", "", "2101"}};
  Open(kTwoPanels);
  ClickLine(List(), 0);
  EXPECT_FALSE(IsSaid("lblNotAdded"));
  for (const auto& [name, other, listed] : changes) {
    Type(name, other);
    EXPECT_TRUE(IsSaid("lblNotAdded")) << name;
    Type(name, listed);
    EXPECT_FALSE(IsSaid("lblNotAdded")) << name;
  }
  auto* colours = Find<QComboBox>("ComboColorType");
  colours->setCurrentIndex(0);
  EXPECT_TRUE(IsSaid("lblNotAdded"));
  colours->setCurrentIndex(1);
  EXPECT_FALSE(IsSaid("lblNotAdded"));
}

TEST_F(ConfigNotesTest, ARefusedPanelIsStillNotAddedAndAChosenLineEndsIt) {
  Open(kTwoPanels);
  Type("txtRow", "4");
  Click("butAdd");
  ExpectOneBox("Input is not Valid!");
  EXPECT_TRUE(IsSaid("lblNotAdded"));
  ClickLine(List(), 1);
  EXPECT_FALSE(IsSaid("lblNotAdded"));
}

TEST_F(ConfigNotesTest, APanelThatIsTakenOutIsInTheBoxesOnly) {
  Open("[Dimension Config]\r\nID001=4x96,Tri,127.0.0.1:2101\r\n");
  ClickLine(List(), 0);
  Click("butRemove");
  EXPECT_TRUE(IsSaid("lblNotAdded"));
  Click("butAdd");
  EXPECT_FALSE(IsSaid("lblNotAdded"));
}

TEST_F(ConfigNotesTest, AStoredPanelThatCouldNotBeAddedIsAsTheListHasIt) {
  Open("[Dimension Config]\r\nID001=20x96,Tri,panel.local:99999\r\nID002=8x96,Tri\r\n");
  ClickLine(List(), 0);
  EXPECT_FALSE(IsSaid("lblNotAdded"));
  ClickLine(List(), 1);
  EXPECT_FALSE(IsSaid("lblNotAdded"));
}

TEST_F(ConfigNotesTest, TheToolTipSaysWhyItMattersAndNamesTheButtonAsItIsShown) {
  folder_.UseLanguage("[frmConfig]\r\nfrmConfig.butAdd=<b>Hinzu\r\n");
  Open(kTwoPanels);
  const QString why =
      Text("Only the panels in the list are saved. Press \"<b>Hinzu\" to add this one.");
  EXPECT_EQ(Find<QLabel>("lblNotAdded")->accessibleDescription(), why);
  const QString shown = Find<QLabel>("lblNotAdded")->toolTip();
  EXPECT_TRUE(shown.contains(Text("Only the panels in the list are saved.")))
      << shown.toStdString();
  EXPECT_FALSE(shown.contains(Text("<b>")));  // no markup
}

TEST_F(ConfigNotesTest, NothingMovesWhenTheLineBesideAddAppears) {
  Open(kTwoPanels);
  const QSize window = window_->size();
  const QRect add = Find<QWidget>("butAdd")->geometry();
  Type("txtID", "5");
  QCoreApplication::processEvents();
  EXPECT_EQ(window_->size(), window);
  EXPECT_EQ(Find<QWidget>("butAdd")->geometry(), add);
  EXPECT_LT(Find<QWidget>("lblNotAdded")->geometry().right(), add.left());
}

TEST_F(ConfigNotesTest, WhileNoLinkIsChosenALineBelowTheOptionsSaysSo) {
  Open("");
  EXPECT_TRUE(IsSaid("lblNoLink"));
  EXPECT_EQ(Find<QLabel>("lblNoLink")->text(), Text("No link is chosen yet"));
  EXPECT_GT(Find<QLabel>("lblNoLink")->y(), Option("optRS232")->geometry().bottom());
  const int before = Find<QWidget>("FrameComm")->y();
  Click("optRS232");
  QCoreApplication::processEvents();
  EXPECT_FALSE(IsSaid("lblNoLink"));
  EXPECT_EQ(Find<QWidget>("FrameComm")->y(), before);
  Open(kTwoPanels);
  EXPECT_FALSE(IsSaid("lblNoLink"));
}

TEST_F(ConfigNotesTest, OverTcpTheAddressOfAPanelThatHasNoneIsMarkedInTheBoxes) {
  Open(kTwoPanels);
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("0.0.0.0"));
  EXPECT_TRUE(IsSaid("lblNoAddress"));
  EXPECT_EQ(Find<QLabel>("lblNoAddress")->text(), Text("No address yet"));
  EXPECT_EQ(Box("txtIPAddress")->accessibleDescription(), Text("No address yet"));
  Type("txtIPAddress", "10.0.0.1");
  EXPECT_FALSE(IsSaid("lblNoAddress"));
  EXPECT_EQ(Box("txtIPAddress")->accessibleDescription(), QString());
  Type("txtIPAddress", "00.0.0.0");
  EXPECT_TRUE(IsSaid("lblNoAddress"));
  Click("optRS232");
  EXPECT_FALSE(IsSaid("lblNoAddress"));
  Click("optTCPIP");
  EXPECT_TRUE(IsSaid("lblNoAddress"));
  Open("");  // neither link
  EXPECT_FALSE(IsSaid("lblNoAddress"));
}

TEST_F(ConfigNotesTest, OverTcpTheLineOfAPanelWithoutAnAddressIsMarked) {
  Open(
      "[Dimension Config]\r\nID001=4x96,Tri,0.0.0.0:80\r\nID002=4x96,Tri\r\n"
      "ID003=4x96,Tri,10.0.0.3:80\r\n[Communication]\r\nSendMode=TCPIP\r\n");
  const auto marks = [this](int role) {
    QStringList found;
    for (int row = 0; row < List()->count(); ++row) {
      found.append(List()->item(row)->data(role).toString());
    }
    return found;
  };
  const QString mark = Text("No address yet");
  for (const int role : {int{Qt::ToolTipRole}, int{Qt::AccessibleDescriptionRole}}) {
    EXPECT_EQ(marks(role), (QStringList{mark, mark, QString()}));
    Click("optRS232");
    EXPECT_EQ(marks(role), (QStringList{QString(), QString(), QString()}));
    Click("optTCPIP");
    EXPECT_EQ(marks(role), (QStringList{mark, mark, QString()}));
  }
  TypePanel("4", "4", "96");
  Click("butAdd");
  EXPECT_EQ(marks(Qt::ToolTipRole), (QStringList{mark, mark, QString(), mark}));
}

}  // namespace
