// The launcher, as its tests find their way about it.
#pragma once

#include <QLabel>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "support/program_folder.h"
#include "widgets/caption_button.h"

inline QString Text(const char* text) { return QString::fromUtf8(text); }

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
