// A window that sends in front of a panel, over a line in memory.
#pragma once

#include <QStringList>

#include <gtest/gtest.h>

#include "sending/sending_windows.h"

class WindowOverLineTest : public testing::TestWithParam<WindowOverLine> {
 protected:
  WindowOverLineTest()
      : bench_(GetParam().line, {GetParam().window->panel}),
        path_(window_.write_file(bench_.Folder())) {}

  /// The window, ready to send.
  SendDialog Open() {
    SendDialog dialog(window_.make(path_, bench_.Ports()), window_.locked);
    window_.fill_in(dialog);
    return dialog;
  }

  QStringList Finished() const { return {window_.finished(GetParam().line)}; }
  QStringList Failed() { return window_.failed(bench_.Folder()); }
  static QStringList NotOpened() {
    return {GetParam().line == LineKind::kTcp
                ? QStringLiteral("Cannot create TCP link!")
                : QStringLiteral("Fail to initialize communication port!")};
  }

  /// Calls `look` whenever the panel has received a frame, with the window still waiting.
  template <typename Look>
  void AtEachFrame(SendDialog& dialog, const Look& look) {
    QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                     look);
  }

  /// Everything is as it was before a send, but for a status that stays.
  void ExpectAtRest(SendDialog& dialog) {
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_TRUE(bench_.IsReleased());
    EXPECT_FALSE(bench_.Timer().IsEnabled());
    if (!window_.statuses.isEmpty() && !window_.keeps_status) {
      EXPECT_EQ(dialog.Shown("lblSendStatus"), QString());
    }
  }

  void ExpectTheNextSendWorks(SendDialog& dialog) {
    ExpectAtRest(dialog);
    bench_.Fail({});
    bench_.PlugIn();
    const qsizetype before = bench_.Frames().size();
    EXPECT_EQ(dialog.Send(), Finished());
    EXPECT_EQ(bench_.Frames().mid(before), window_.frames);
    ExpectAtRest(dialog);
  }

  const SendingWindow& window_ = *GetParam().window;
  VirtualBench bench_;
  QString path_;
};
