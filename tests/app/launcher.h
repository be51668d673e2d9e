// The launcher, as its tests find their way about it.
#pragma once

#include <QLabel>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "support/program_folder.h"
#include "support/text.h"
#include "widgets/caption_button.h"

class MainWindowTest : public testing::Test {
 protected:
  void Language(const QByteArray& value) {
    folder_.Write(Text("brivon.ini"), "[Language]\r\nLanguage=" + value + "\r\n");
  }

  static CaptionButton* Button(const QWidget& window, const char* name) {
    return window.findChild<CaptionButton*>(Text(name));
  }

  static QString Label(const QWidget& window, const char* name) {
    return window.findChild<QLabel*>(Text(name))->text();
  }

  TemporaryProgramFolder folder_;
};
