// What a screen reader calls the controls of every window: their captions as they are shown.
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "language/caption_tables.h"
#include "language/module_language.h"
#include "page/frmDimension.h"
#include "page/frmMsgEditor.h"
#include "page/frmPage.h"
#include "page/frmSendMsg.h"
#include "schedule/frmDelay.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/frmShiftMsg.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

/// The control that shows a control's caption, or in quotation marks a name that no caption gives,
/// in English.
using Captions = std::map<QString, QString>;

struct Window {
  std::unique_ptr<QWidget> window;
  Captions captions;
};

template <typename T, typename... Arguments>
Window Made(Captions captions, Arguments&&... arguments) {
  return {std::make_unique<T>(nullptr, std::forward<Arguments>(arguments)...), std::move(captions)};
}

std::vector<Window> AllWindows() {
  std::vector<Window> all;
  all.push_back({std::make_unique<frmMain>(), {}});
  Captions page = {
      {u"ComboColor"_s, u"lblColor"_s},         {u"ComboSize"_s, u"lblSize"_s},
      {u"ComboGraphic"_s, u"lblGraphic"_s},     {u"scrollRows"_s, u"labelRow"_s},
      {u"Command3"_s, u"'Shift rows right'"_s}, {u"Command4"_s, u"'Shift rows left'"_s}};
  for (int row = 1; row <= 12; ++row) page[u"Picture1(%1)"_s.arg(row)] = u"labelRow"_s;
  all.push_back(Made<frmMsgEditor>(page));
  all.push_back(Made<frmShiftMsg>({{u"ComboColor"_s, u"lblColor"_s},
                                   {u"ComboSize"_s, u"lblSize"_s},
                                   {u"spinColumns"_s, u"lblColumns"_s},
                                   {u"Picture1"_s, u"'Message'"_s}}));
  all.push_back(Made<frmSchedule>({{u"comboWeek"_s, u"FrameSchTable"_s},
                                   {u"txtHour"_s, u"'Hour'"_s},
                                   {u"txtMin"_s, u"'Minute'"_s},
                                   {u"GridSeqTable"_s, u"FrameSchTable"_s}}));
  all.push_back(Made<frmConfig>({{u"txtIPAddress"_s, u"lblIPAdress"_s},
                                 {u"txtIPPortNo"_s, u"lblIPport"_s},
                                 {u"ListComPort"_s, u"PanelSerial"_s},
                                 {u"txtID"_s, u"lblIDNumber"_s},
                                 {u"txtRow"_s, u"lblRow"_s},
                                 {u"txtcol"_s, u"lblCol"_s},
                                 {u"ComboColorType"_s, u"lblColor"_s},
                                 {u"List1"_s, u"FrameIDConfig"_s}}));
  all.push_back(
      Made<frmCommand>({{u"ComboID"_s, u"FrameID"_s}, {u"ListCommand"_s, u"frmCommand"_s}}));
  all.push_back(
      Made<frmSendMsg>({{u"ComboID"_s, u"LabelDisplayID"_s}, {u"txtPage"_s, u"Label2"_s}}, u""_s));
  all.push_back(Made<frmSendSch>(
      {{u"txtSchNo"_s, u"lblSchNo"_s}, {u"ComboSchID"_s, u"LabelDisplayID"_s}}, u""_s));
  all.push_back(Made<frmSendShift>(
      {{u"ComboID"_s, u"LabelDisplayID"_s}, {u"txtLine"_s, u"labelLine"_s}}, u""_s));
  all.push_back(Made<frmDimension>({{u"List1"_s, u"FrameDimension"_s}}));
  all.push_back(Made<frmPage>({{u"txtPage"_s, u"lblPageNo"_s}}));
  all.push_back(
      Made<frmDelay>({{u"txtDelay"_s, u"FrameDelay"_s}, {u"ListFeature"_s, u"FrameFeature"_s}}));
  return all;
}

/// The controls that Tab or a click gives the keyboard to, without the parts that they consist of.
QList<QWidget*> ControlsOf(const QWidget& window) {
  QList<QWidget*> controls;
  for (QWidget* control : window.findChildren<QWidget*>()) {
    const bool is_part = qobject_cast<QComboBox*>(control->parentWidget()) != nullptr;
    const QString name = control->objectName();
    if (control->focusPolicy() == Qt::NoFocus || is_part || name.isEmpty()) continue;
    if (!name.startsWith("qt_"_L1)) controls.append(control);
  }
  return controls;
}

/// Those names in the German sample.
const std::map<QString, QString> kGermanNames = {
    {u"Shift rows right"_s, u"Zeilen nach rechts schieben"_s},
    {u"Shift rows left"_s, u"Zeilen nach links schieben"_s},
    {u"Message"_s, u"Meldung"_s},
    {u"Hour"_s, u"Stunde"_s},
    {u"Minute"_s, u"Minute"_s},
};

/// What a window shows, without the "&" that marks the shortcut.
QString Shown(QString caption) { return caption.remove(u'&'); }

QString CaptionIn(const QWidget& window, const QString& name) {
  if (name.startsWith(u'\'')) {
    const QString english = name.sliced(1).chopped(1);
    return ModuleLanguage::IsLanguageActive() ? kGermanNames.at(english) : english;
  }
  if (name == window.objectName()) return window.windowTitle();
  if (const auto* label = window.findChild<QLabel*>(name)) return Shown(label->text());
  const auto* box = window.findChild<QGroupBox*>(name);
  return box == nullptr ? u"no caption "_s + name : Shown(box->title());
}

/// What a reader calls a control. A closed list says its entry for a name, on a desktop that has
/// relations, and is called by what labels it.
QString NameTold(QWidget* control) {
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
  if (qobject_cast<QComboBox*>(control) == nullptr) return accessible->text(QAccessible::Name);
  const auto labels = accessible->relations(QAccessible::Label);
  if (labels.isEmpty()) return {};
  // The nearest one stands in front of the group's.
  return labels.first().first->text(QAccessible::Name);
}

class AccessibleNames : public testing::Test {
 protected:
  AccessibleNames() { folder_.Configure("[Dimension Config]\r\nID001=4x80,Tri,127.0.0.1:80\r\n"); }

  void UseGerman(bool with_shortcuts) {
    folder_.Configure(
        "[Dimension Config]\r\nID001=4x80,Tri,127.0.0.1:80\r\n[Language]\r\nLanguage=2\r\n");
    QFile file(QStringLiteral(BRIVON_SAMPLES "/languages/deutsch/langSetting.INI"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray content = file.readAll();
    for (const auto& table : ModuleLanguage::CaptionTables()) {
      for (const auto& row : table.rows) {
        if (row.kind != ModuleLanguage::CaptionKind::kControl || !with_shortcuts) continue;
        const QByteArray key = QByteArray("\n") + row.key + '=';
        content.replace(key + '&', key).replace(key, key + '&');
      }
    }
    folder_.UseLanguage(content);
  }

  static void ExpectNames() {
    int count = 0;
    for (const auto& [window, captions] : AllWindows()) {
      for (QWidget* control : ControlsOf(*window)) {
        ++count;
        const QString name = control->objectName();
        const QString where = window->objectName() + u'.' + name;
        QString expected;
        if (captions.contains(name)) {
          expected = CaptionIn(*window, captions.at(name));
        } else if (const auto* button = qobject_cast<QAbstractButton*>(control)) {
          expected = Shown(button->text());
        }
        if (name.startsWith("Picture1("_L1)) {
          expected = expected.remove(u':').trimmed() + u' ' + name.sliced(9).chopped(1);
        } else if (name == "scrollRows"_L1) {
          expected = expected.remove(u':').trimmed();
        }
        EXPECT_FALSE(expected.isEmpty()) << where.toStdString() << " is not known here";
        EXPECT_EQ(NameTold(control).toStdString(), expected.toStdString()) << where.toStdString();
      }
    }
    EXPECT_GE(count, 100);
  }

  /// What the control is called in a window that is opened now.
  template <typename T>
  static std::string NameIn(const char* control) {
    const T window(nullptr);
    return NameTold(window.template findChild<QWidget*>(QString::fromLatin1(control)))
        .toStdString();
  }

  TemporaryProgramFolder folder_;
};

TEST_F(AccessibleNames, InEnglishEveryControlIsCalledByItsCaption) {
  ExpectNames();
  EXPECT_EQ(NameIn<frmCommand>("ListCommand"), "Command");
  EXPECT_EQ(NameIn<frmConfig>("List1"), "ID Configuration");
  EXPECT_EQ(NameIn<frmMsgEditor>("Picture1(7)"), "Row 7");
}

TEST_F(AccessibleNames, InAnotherLanguageEveryControlIsCalledByItsCaption) {
  UseGerman(false);
  ExpectNames();
  EXPECT_EQ(NameIn<frmCommand>("ListCommand"), "Befehle an die Anzeige");
  EXPECT_EQ(NameIn<frmCommand>("ComboID"), "Nummer der Anzeige");
  EXPECT_EQ(NameIn<frmConfig>("List1"), "Anzeigen");
  EXPECT_EQ(NameIn<frmMsgEditor>("Picture1(7)"), "Zeilen 7");
}

TEST_F(AccessibleNames, TheMarkOfAShortcutIsNoPartOfAName) {
  UseGerman(true);
  const frmConfig window(nullptr);
  EXPECT_EQ(window.findChild<QGroupBox*>(u"PanelSerial"_s)->title(), u"&Serielle Schnittstelle"_s);
  ExpectNames();
}

}  // namespace
