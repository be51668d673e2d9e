// What the tests of the small modal dialogs share: the process-wide answers as they are at the
// start of the program, and the controls by name.
#pragma once

#include <QListWidget>
#include <QPushButton>
#include <QString>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

#include "page/dialog_results.h"
#include "support/program_folder.h"

class SmallDialogTest : public testing::Test {
 protected:
  SmallDialogTest() {
    Brivon1::DialogAccepted = false;
    Brivon1::DialogDelay = 1;
    Brivon1::DialogText.clear();
    Brivon1::SelectedRows = 0;
    Brivon1::SelectedCols = 0;
  }

  template <typename Control>
  static Control* Find(const QWidget& window, const char* name) {
    return window.findChild<Control*>(QString::fromUtf8(name));
  }

  static QPushButton* Button(const QWidget& window, const char* name) {
    return Find<QPushButton>(window, name);
  }

  static void Click(const QWidget& window, const char* name) {
    QTest::mouseClick(Button(window, name), Qt::LeftButton);
  }

  static QStringList Entries(const QListWidget* list) {
    QStringList entries;
    for (int i = 0; i < list->count(); ++i) entries.append(list->item(i)->text());
    return entries;
  }

  TemporaryProgramFolder folder_;
};
