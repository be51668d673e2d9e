// A configuration file that several have open.
#pragma once

#include <gtest/gtest.h>

#include "config/applied_draft.h"
#include "support/program_folder.h"

class SharedConfiguration : public testing::Test {
 protected:
  static constexpr const char* kBefore =
      "[Dimension Config]\r\nID001=4x96,Tri,10.0.0.1:80\r\nID002=4x96,Tri,10.0.0.2:80\r\n"
      "[Communication]\r\nSendMode=TCPIP\r\nBaudrate=9600\r\nComPort=2\r\n";

  SharedConfiguration() { folder_.Configure(kBefore); }

  static bool GiveUp() { return false; }

  static Brivon1::ConfigurationDraft Opened() {
    Brivon1::LoadConfiguration();
    return Brivon1::ConfigurationDraft(Brivon1::Store());
  }

  QByteArray File() const { return folder_.Read(QStringLiteral("brivon.ini")); }

  TemporaryProgramFolder folder_;
};
