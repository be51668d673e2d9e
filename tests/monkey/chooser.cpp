#include "monkey/chooser.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>

#include "monkey/front.h"
#include "row/row_surface.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList kKeys = {u"Return"_s,    u"Enter"_s,        u"Esc"_s,         u"Space"_s,
                           u"Tab"_s,       u"Backtab"_s,      u"Up"_s,          u"Down"_s,
                           u"Left"_s,      u"Right"_s,        u"Home"_s,        u"End"_s,
                           u"PgUp"_s,      u"PgDown"_s,       u"Backspace"_s,   u"Del"_s,
                           u"Ins"_s,       u"Shift+Left"_s,   u"Shift+Right"_s, u"Shift+Home"_s,
                           u"Shift+End"_s, u"Ctrl+Left"_s,    u"Ctrl+Right"_s,  u"Ctrl+A"_s,
                           u"Ctrl+C"_s,    u"Ctrl+V"_s,       u"Ctrl+X"_s,      u"Ctrl+Z"_s,
                           u"Ctrl+Y"_s,    u"Ctrl+Shift+Z"_s, u"Ctrl+N"_s,      u"Ctrl+O"_s,
                           u"Ctrl+S"_s,    u"Ctrl+Shift+S"_s, u"Ctrl+Return"_s, u"F1"_s,
                           u"F2"_s,        u"F4"_s,           u"F9"_s,          u"Shift+F9"_s,
                           u"F10"_s,       u"Menu"_s,         u"Shift+F10"_s,   u"Ctrl+End"_s,
                           u"Ctrl+Home"_s, u"Ctrl+Ins"_s,     u"Shift+Ins"_s,   u"Shift+Del"_s,
                           u"Ctrl+B"_s,    u"Ctrl+E"_s,       u"Alt+Down"_s,    u"Ctrl+Backspace"_s,
                           u"Ctrl+Del"_s,  u"Shift+Tab"_s,    u"Alt+F4"_s};

const QStringList kNames = {u"page.msg"_s,      u"small.msg"_s,    u"long.srl"_s,
                            u"week.sch"_s,      u"notes.txt"_s,    u"broken.msg"_s,
                            u"broken.sch"_s,    u"new"_s,          u"NEW.MSG"_s,
                            u"NEW.SCH"_s,       u"NEW.SRL"_s,      u"other.msg"_s,
                            u"other.sch"_s,     u"other.srl"_s,    u"brivon.ini"_s,
                            u"missing/a.msg"_s, u"sub"_s,          u"Gr\u00fc\u00dfe.msg"_s,
                            u"\u0416.msg"_s,    QString(120, u'x')};

const QStringList kFaults = {u"none"_s,          u"none"_s,     u"none"_s,       u"none"_s,
                             u"silent"_s,        u"silent:2"_s, u"garbage"_s,    u"lower-case"_s,
                             u"pieces:3"_s,      u"late:900"_s, u"stray-byte"_s, u"close-after:1"_s,
                             u"close-after:3"_s, u"flood"_s,    u"unplug"_s,     u"plug"_s};

const QString kLetters =
    u"abcXYZ 019 .,;:!?<>=~%&*-+_/\\\"'\u00e4\u00d6\u00df\u20ac\u0416\u4e16\t\u00a0"_s;

}  // namespace

Action Chooser::NextStart() { return {u"start"_s, {QString::number(Below(8))}}; }

Action Chooser::Next() {
  const QWidget* front = Front();
  if (OneIn(250)) return {u"home"_s, {}};
  if (IsSending() && OneIn(400)) return {u"end"_s, {}};
  if (OneIn(40)) return {u"fault"_s, {OneOf(kFaults)}};
  if (OneIn(30)) return {u"pause"_s, {}};
  if (OneIn(60)) return {u"disk"_s, {OneIn(2) ? u"0"_s : QString::number(1 + Below(24))}};
  if (OneIn(150)) return AtTheDesktop();
  if (FileDialogInFront() != nullptr) return AtTheFileDialog();
  if (OneIn(25)) return AroundTheWindow();
  if (front->windowType() == Qt::Popup) return AtAPopup(*front);
  if (qobject_cast<const QMessageBox*>(front) != nullptr) return AtAMessageBox();
  if (front->objectName() == "frmMain"_L1 && !OneIn(20)) {
    const QStringList buttons = {u"butMsgEdit"_s, u"butShiftMsg"_s, u"butSchEdit"_s,
                                 u"butConfigEdit"_s, u"butCommand"_s};
    return Click(u"frmMain/"_s + OneOf(buttons));
  }
  return AtTheWindow();
}

QString Chooser::RandomText() {
  if (OneIn(8))
    return OneOf({u"<SA><CB>"_s, u"<L02>"_s, u"a\nb\r\nc"_s, u"192.168.0.1"_s, u"**"_s});
  if (OneIn(3)) return QString::number(Below(OneIn(4) ? 70000 : 30));
  const int length = OneIn(20) ? 2000 : 1 + Below(12);
  QString text;
  for (int i = 0; i < length; ++i) text += kLetters[Below(static_cast<int>(kLetters.size()))];
  return text;
}

Action Chooser::Key() {
  if (OneIn(12)) return {u"key"_s, {u"Alt+"_s + QChar(u'A' + Below(26))}};
  return {u"key"_s, {OneOf(kKeys)}};
}

Action Chooser::AroundTheWindow() {
  switch (Below(6)) {
    case 0:
      return {u"clip"_s, {RandomText()}};
    case 1:
      return {u"resize"_s, {QString::number(Below(1400)), QString::number(Below(1000))}};
    case 2:
      return {u"state"_s, {OneOf({u"minimized"_s, u"maximized"_s, u"normal"_s, u"normal"_s})}};
    case 3:
      return {u"elsewhere"_s, {}};
    default:
      return {u"close"_s, {}};
  }
}

Action Chooser::AtTheDesktop() {
  if (OneIn(4)) return {u"quit"_s, {}};
  return {u"logout"_s, {OneOf({u"ask"_s, u"ask"_s, u"silent"_s}), OneOf({u"end"_s, u"stay"_s})}};
}

Action Chooser::AtTheFileDialog() {
  switch (Below(12)) {
    case 0:
      return {u"key"_s, {u"Esc"_s}};
    case 1:
      return {u"close"_s, {}};
    case 2:
      return {u"resize"_s, {QString::number(Below(1400)), QString::number(Below(1000))}};
    default:
      return {u"name"_s, {OneOf(kNames)}};
  }
}

Action Chooser::AtAPopup(const QWidget& popup) {
  if (OneIn(3)) return Click(PathOf(&popup));
  return {u"key"_s, {OneOf({u"Down"_s, u"Up"_s, u"Return"_s, u"Esc"_s, u"Space"_s, u"End"_s})}};
}

Action Chooser::AtAMessageBox() {
  switch (Below(8)) {
    case 0:
      return {u"key"_s, {u"Esc"_s}};
    case 1:
    case 2:
      return {u"key"_s, {u"Return"_s}};
    case 3:
      return AtTheWindow();
    default:
      break;
  }
  QStringList buttons;
  for (const QWidget* control : ControlsInFront()) {
    if (qobject_cast<const QAbstractButton*>(control) != nullptr) buttons.append(PathOf(control));
  }
  return buttons.isEmpty() ? Key() : Click(OneOf(buttons));
}

Action Chooser::AtTheWindow() {
  if (OneIn(5)) return Key();
  if (OneIn(8)) return {u"type"_s, {RandomText()}};
  const QList<QWidget*> controls = ControlsInFront();
  if (controls.isEmpty()) return Key();
  // What does something is wanted more often than a frame or a label.
  for (int attempt = 0; attempt < 6; ++attempt) {
    const QWidget* control = controls[Below(static_cast<int>(controls.size()))];
    const bool does = qobject_cast<const QAbstractButton*>(control) != nullptr ||
                      qobject_cast<const QLineEdit*>(control) != nullptr ||
                      qobject_cast<const QComboBox*>(control) != nullptr ||
                      qobject_cast<const RowSurface*>(control) != nullptr ||
                      qobject_cast<const QAbstractItemView*>(control) != nullptr;
    if (does || attempt == 5) return AtTheControl(*control);
  }
  return Key();
}

Action Chooser::AtTheControl(const QWidget& control) {
  const QString path = PathOf(&control);
  if (qobject_cast<const RowSurface*>(&control) != nullptr) return AtTheRow(path);
  if (OneIn(15)) return {u"wheel"_s, {path, Place(), Place(), OneIn(2) ? u"-120"_s : u"240"_s}};
  if (OneIn(15)) return {u"focus"_s, {path}};
  if (OneIn(25)) return {u"click"_s, {path, Place(), Place(), u"right"_s}};
  if (OneIn(25)) return {u"drag"_s, {path, Place(), Place(), Place(), Place()}};
  if (qobject_cast<const QComboBox*>(&control) != nullptr && !OneIn(3)) {
    return {u"choose"_s, {path, QString::number(Below(6))}};
  }
  if (qobject_cast<const QAbstractItemView*>(&control) != nullptr && OneIn(3)) {
    return {u"double"_s, {path, Place(), Place()}};
  }
  return Click(path);
}

Action Chooser::AtTheRow(const QString& path) {
  switch (Below(8)) {
    case 0:
      return {u"drag"_s, {path, Place(), Place(), Place(), Place()}};
    case 1:
      return {u"double"_s, {path, Place(), Place()}};
    case 2:
      return {u"click"_s, {path, Place(), Place(), u"right"_s}};
    case 3:
      return {u"click"_s, {path, Place(), Place(), u"left"_s, u"shift"_s}};
    case 4:
      return {u"wheel"_s, {path, Place(), Place(), u"-120"_s}};
    case 5:
      return {u"focus"_s, {path}};
    default:
      return {u"click"_s, {path, Place(), Place(), u"left"_s}};
  }
}

Action Chooser::Click(const QString& path) {
  return {u"click"_s, {path, Place(), Place(), u"left"_s}};
}
