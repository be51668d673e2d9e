#include "language/further_texts.h"

#include <algorithm>

#include "base/code_page.h"
#include "language/module_language.h"

using namespace Qt::StringLiterals;

namespace ModuleLanguage {
namespace {

constexpr FurtherText kTexts[] = {
    // Messages
    {"txtNoConfig", "System haven't config. yet!", "New, with no panel configured"},
    {"txtErrOpening", "Error in Opening file", "Open, a file that breaks off; \"!\" follows"},
    {"txtEmptyID", "Empty ID!", "Command, no panel chosen"},
    {"txtIDSelection", "Invalid ID Selection!", "sending a message, no panel chosen"},
    {"txtNoID", "No ID Selected!", "sending a schedule, no panel chosen"},
    {"txtPageValue", "Invalid Page Value!", "a page number that is none"},
    {"txtNoIP", "IP address is null or invaild", "sending a message, the panel has no address"},
    {"txtClockSent", "Set Clock Finished!", "Set Clock over TCP/IP"},
    {"txtInput", "Input is not Valid!", "Config, Add with a box that is empty or wrong"},
    {"txtIPAddress", "Invalid IP Address!", "Config, an IP address that is none"},
    {"txtNotMessage", "Not Message File Format!", "schedule, a file that is no message"},
    {"txt26Files", "Cannot Exceed 26 different message file!", "schedule, Add"},
    {"txt26FilesInsert", "Cannot Exceed 26 different Message Files!", "schedule, Insert"},
    {"txtHour", "Hour Format Wrong!", "schedule, Save"},
    {"txtMinute", "Minute Format Wrong!", "schedule, Save"},
    {"txtEmptySend", "Cannot Save: Empty Schedule!", "schedule, Send"},
    {"txtPath", "Path Not Valid", "schedule, Send"},
    {"txtDrive", "Drive Not Available!", "schedule, Send"},
    {"txtLetter", "Please enter A-J", "sending a schedule, a wrong letter"},
    {"txtEmptySch", "Empty Schedule File!", "sending a schedule without messages"},
    {"txtSchSent", "Schedules file is sent successfully through network",
     "a schedule was sent over TCP/IP, where msgSendSchOK is missing"},
    {"txtDimension", "Dimension Not Match", "sending a schedule; \": \" and a file's name follow"},
    {"txtLineEmpty", "Invalid Line No.!", "sending a scrolling message, no line entered"},
    {"txtLineRange", "Line No. Not Valid!", "sending a scrolling message, no such line"},
    // The line below a message about a link
    {"txtNoAddress", "No usable network address is configured for this panel.", "TCP/IP failed"},
    {"txtNoAnswer", "no answer within %1 ms", "TCP/IP failed; the address stands in front"},
    {"txtNoBaud", "0 baud", "RS-232 failed; the device stands in front"},
    {"txtPortGroup", "The group \"%1\" may use this port: add your user to it and log in again.",
     "RS-232 failed, no permission; %1 is the group"},
    {"txtNoFile", "No such file or directory", "RS-232 failed, what the system says"},
    {"txtNoRight", "Permission denied", "RS-232 failed, what the system says"},
    {"txtBusy", "Device or resource busy", "RS-232 failed, what the system says"},
    {"txtNoDevice", "No such device", "RS-232 failed, what the system says"},
    {"txtNoDeviceAddress", "No such device or address", "RS-232 failed, what the system says"},
    {"txtInOut", "Input/output error", "RS-232 failed, what the system says"},
    {"txtNoSerial", "Inappropriate ioctl for device", "RS-232 failed, what the system says"},
    {"txtWrongArgument", "Invalid argument", "RS-232 failed, what the system says"},
    // States
    {"txtReading", "Reading %1", "sending, the state; %1 is the file"},
    {"txtSendingLine", " Sending Line %1", "sending, the state; %1 is the row"},
    {"txtLineAck", " Sending Line %1 <--- Ack", "sending, the state; %1 is the row"},
    {"txtSending", "Sending --->", "sending a scrolling message, the state"},
    {"txtSchedule", "Schedule--->", "sending a schedule, the state"},
    {"txtAck", "<--- Ack", "sending, the state"},
    {"txtPosition", "%1 of %2", "scrolling message; cursor and length"},
    {"txtPositionFull", "%1 of %2 (full)", "scrolling message; cursor and length, no room left"},
    // Lists, tables, menus
    {"txtComPort", "Com %1", "Config, the list of serial ports"},
    {"txtMono", "Mono", "Config, color type"},
    {"txtTri", "Tri", "Config, color type"},
    {"txtMonoColor", "Mono-Color", "the lists of panels"},
    {"txtTriColor", "Tri-Color", "the lists of panels"},
    {"txtSunday", "Sunday", "schedule, weekday"},
    {"txtMonday", "Monday", "schedule, weekday"},
    {"txtTuesday", "Tuesday", "schedule, weekday"},
    {"txtWednesday", "Wednesday", "schedule, weekday"},
    {"txtWednesday", "Wenesday", "schedule, weekday"},
    {"txtThursday", "Thursday", "schedule, weekday"},
    {"txtThursday", "Thurday", "schedule, weekday"},
    {"txtFriday", "Friday", "schedule, weekday"},
    {"txtSaturday", "Saturday", "schedule, weekday"},
    {"txtSaturday", "Sataruday", "schedule, weekday"},
    {"txtEnd", "End", "schedule, the last row of the table"},
    {"txtPaste", "Paste", "the menu of a row of text"},
    // File dialogs
    {"txtAll", "All", "file dialogs, file type"},
    {"txtTypeMessage", "Message File", "file dialogs, file type"},
    {"txtTypeSchedule", "Schedule File", "file dialogs, file type"},
    {"txtTypeSchedule", "Sch File", "file dialogs, file type"},
    {"txtTypeScrolling", "Scrolling Message", "file dialogs, file type"},
    {"txtTypeScrolling", "Scrolling Message File", "file dialogs, file type"},
    {"txtTypeScrolling", "scrolling File", "file dialogs, file type"},
    // Notes of the windows
    {"txtNotAdded", "Not added yet", "Config, beside \"Add >>\""},
    {"txtNotAddedWhy", "Only the panels in the list are saved. Press \"%1\" to add this one.",
     "Config, tool tip beside \"Add >>\"; %1 is the button"},
    {"txtNoAddressYet", "No address yet", "Config, a panel without an IP address"},
    {"txtNoLinkYet", "No link is chosen yet", "Config, below the two links"},
    {"txtDeletesAll", "Deletes every page of %1", "Command, \"Delete All\"; %1 is the panel"},
    {"txtDeletesOne", "Deletes one page of %1", "Command, \"Delete Page\"; %1 is the panel"},
    {"txtDeletesAllOfAll", "Deletes every page of all panels",
     "Command, \"Delete All\" with ID000"},
    {"txtDeletesOneOfAll", "Deletes one page of all panels", "Command, \"Delete Page\" with ID000"},
    {"txtNoLink", "No link is chosen: Config, Communication Selection",
     "windows that send, no link chosen"},
    {"txtSentOver", "Sent over Com %1, %2",
     "sending a scrolling message; %1 is the port, %2 the device"},
    // Progress
    {"txtProgress", "Progress", "the bar of a window that sends, for screen readers"},
    {"txtStop", "Stop", "windows that send, button"},
    {"txtConnecting", "Connecting to the panel", "sending"},
    {"txtStopping", "Stopping after this attempt", "sending, after Stop"},
    {"txtAttempt", "Attempt %1 of %2", "sending a command or a scrolling message"},
    {"txtRowAttempt", "Row %1 of %2, attempt %3 of %4", "sending a message"},
    {"txtFileAttempt", "File %1 of %2, row %3 of %4, attempt %5 of %6: %7",
     "sending a schedule; %7 is the file"},
    {"txtScheduleAttempt", "Schedule, attempt %1 of %2", "sending a schedule, behind its files"},
    {"txtLeaving", "The last bytes are leaving, %1 s left", "sending over a slow line"},
    // What has arrived, below a message
    {"txtNothingSent", "Nothing has been sent.", "sending, stopped or failed"},
    {"txtUnknown",
     "ID 0 is all panels together, and they do not answer: how much has arrived is not known.",
     "sending to ID 0, stopped or failed"},
    {"txtSomeFiles", "%1 of %2 files have arrived. The schedule has not.",
     "sending a schedule, stopped or failed"},
    {"txtSomeRows", "%1 of %2 rows have arrived, %3 have not.", "sending, stopped or failed"},
    {"txtNotAcknowledged", "The panel has not acknowledged it.", "sending, stopped or failed"},
    {"txtTried", "Panel ID %1 was tried %2 times.", "sending failed"},
    // File types
    {"txtBrivonPage", "Brivon page", "file dialogs, the type of a .msg file"},
    {"txtBrivonSchedule", "Brivon schedule", "file dialogs, the type of a .sch file"},
    {"txtBrivonScrolling", "Brivon scrolling message", "file dialogs, the type of a .srl file"},
    // Names that a screen reader speaks
    {"txtDate", "Date", "what stands for the date in a page, for screen readers"},
    {"txtTime", "Time", "what stands for the time in a page, for screen readers"},
    {"txtPanelPreview", "Preview on a panel",
     "the panel in the editors of schedules and scrolling messages, for screen readers"},
    {"txtPreviewStep", "Step %1: %2",
     "schedule, the panel beside the table, for screen readers; %1 is the row, %2 the file"},
    {"txtMessageRow", "Message", "the row of a scrolling message, for screen readers"},
};

}  // namespace

std::span<const FurtherText> FurtherTexts() { return kTexts; }

QString TranslateText(const QString& text) { return TranslateText(text, text); }

QString TranslateText(const QString& text, const QString& missing) {
  if (!IsLanguageActive()) return missing;
  const auto* found =
      std::find_if(std::begin(kTexts), std::end(kTexts),
                   [&](const FurtherText& known) { return text == QLatin1String(known.text); });
  if (found == std::end(kTexts)) return missing;
  return ReadLangString(QString::fromLatin1(kFurtherSection), QString::fromLatin1(found->key),
                        missing);
}

QStringList ShownPanelLines(const QList<QByteArray>& lines) {
  constexpr const char* kColourTypes[] = {"Tri-Color", "Mono-Color"};
  QStringList shown;
  for (const QByteArray& line : lines) shown.append(Brivon1::CodePage::System().ToText(line));
  if (!IsLanguageActive()) return shown;
  for (const char* type : kColourTypes) {
    const QString english = QString::fromLatin1(type);
    const QString translated = TranslateText(english);
    for (QString& line : shown) {
      const qsizetype at = line.indexOf(english);
      if (at >= 0) line.replace(at, english.size(), translated);
    }
  }
  return shown;
}

}  // namespace ModuleLanguage
