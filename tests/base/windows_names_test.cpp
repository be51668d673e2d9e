// Paths and names as Windows has them, which are held on every system.
#include "base/windows_names.h"

#include <string>

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

TEST(WindowsNames, APathHasBackslashesAndItsOwnLetters) {
  EXPECT_EQ(WidePath("C:/Panels/caf\xC3\xA9 1.msg"), L"C:\\Panels\\caf\u00E9 1.msg");
  EXPECT_EQ(WidePath("//server/share/a.msg"), L"\\\\server\\share\\a.msg");
  EXPECT_EQ(WidePath(""), L"");
}

TEST(WindowsNames, APathOfUpTo247CharactersIsPlain) {
  const QByteArray path = "C:/" + QByteArray(244, 'a');
  EXPECT_EQ(WidePath(path), L"C:\\" + std::wstring(244, L'a'));
}

TEST(WindowsNames, ALongerPathIsMarkedSoThatTheSystemDoesNotCutIt) {
  EXPECT_EQ(WidePath("C:/" + QByteArray(245, 'a')), L"\\\\?\\C:\\" + std::wstring(245, L'a'));
  EXPECT_EQ(WidePath("//server/share/" + QByteArray(245, 'a')),
            L"\\\\?\\UNC\\server\\share\\" + std::wstring(245, L'a'));
}

TEST(WindowsNames, APathThatIsMarkedIsNotMarkedAgain) {
  EXPECT_EQ(WidePath("//?/C:/" + QByteArray(245, 'a')), L"\\\\?\\C:\\" + std::wstring(245, L'a'));
}

TEST(WindowsNames, DevicesAreKnownInAnyCaseAndWithAnySuffix) {
  for (const QString& name :
       {u"NUL"_s, u"nul.msg"_s, u"Con"_s, u"con.a.b"_s, u"prn"_s, u"AUX .msg"_s, u"com1"_s,
        u"COM9.sch"_s, u"lpt0"_s, u"COM3:"_s, u"conin$"_s, u"CONOUT$"_s}) {
    EXPECT_TRUE(IsDeviceName(name)) << name.toStdString();
  }
}

TEST(WindowsNames, FilesThatBeginLikeADeviceAreFiles) {
  for (const QString& name :
       {u""_s, u".msg"_s, u"nul1.msg"_s, u"null.msg"_s, u"com.msg"_s, u"com10.msg"_s, u"coma.msg"_s,
        u"my nul.msg"_s, u"lpt.sch"_s, u"lpx1"_s, u"conin.msg"_s}) {
    EXPECT_FALSE(IsDeviceName(name)) << name.toStdString();
  }
}

}  // namespace
}  // namespace Brivon1
