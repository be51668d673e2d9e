// The small dialogs with long captions.
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

#include "page/frmDimension.h"
#include "page/frmPage.h"
#include "schedule/frmDelay.h"
#include "support/small_dialog.h"
#include "support/text.h"

namespace {

TEST_F(SmallDialogTest, NothingIsCutInAnyOfThemWithTypicalTranslations) {
  folder_.Write(Text("brivon.ini"), "[Dimension Config]\r\nID001=4x96,Tri\r\n");
  folder_.UseLanguage(
      "[frmDelay]\r\nfrmDelay.FrameDelay=Anzeigedauer der Meldung in Sekunden (von 1 bis 99)\r\n"
      "frmDelay.butOK=Übernehmen\r\nfrmDelay.butCancel=Vorgang abbrechen\r\n"
      "[frmPage]\r\nfrmPage.lblPageNo=Bitte geben Sie die Seitennummer ein\r\n"
      "frmPage.butOk=Übernehmen\r\nfrmPage.butCancel=Vorgang abbrechen\r\n"
      "[frmDimension]\r\nfrmDimension.lblDimension=Abmessungen der neuen Seite festlegen\r\n"
      "frmDimension.butOK=Übernehmen\r\nfrmDimension.butCancel=Vorgang abbrechen\r\n");
  frmDelay delay(nullptr);
  frmPage page(nullptr);
  frmDimension dimension(nullptr);
  for (QWidget* window : {static_cast<QWidget*>(&delay), static_cast<QWidget*>(&page),
                          static_cast<QWidget*>(&dimension)}) {
    window->show();
    for (const QWidget* part : window->findChildren<QWidget*>()) {
      if (qobject_cast<const QPushButton*>(part) == nullptr &&
          qobject_cast<const QGroupBox*>(part) == nullptr &&
          qobject_cast<const QLabel*>(part) == nullptr) {
        continue;
      }
      const QSize needed = part->minimumSizeHint();
      EXPECT_GE(part->width(), needed.width()) << part->objectName().toStdString();
      EXPECT_GE(part->height(), needed.height()) << part->objectName().toStdString();
    }
  }
}

}  // namespace
