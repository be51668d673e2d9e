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
    {"txtUndo", "Undo", "the menu of a row of text"},
    {"txtRedo", "Redo", "the menu of a row of text"},
    {"txtCut", "Cut", "the menu of a row of text"},
    {"txtCopy", "Copy", "the menu of a row of text"},
    {"txtSelectRow", "Select row", "the menu of a row of text"},
    {"txtClearRow", "Clear row", "the menu of a row of text"},
    {"txtCentreRow", "Centre row", "the menu of a row of text"},
    {"txtCopyRow", "Copy row", "the menu of a row of text"},
    {"txtTooWide", "The size stays: the row would be wider than the panel.",
     "page, a size chosen for selected characters"},
    // The line under the rows of an editor
    {"txtRowPlace", "Row %1, place %2 of %3",
     "message; the row, and the cursor's place of all of the row"},
    {"txtPlace", "Place %1 of %2", "scrolling message; the cursor's place of all"},
    {"txtDots", "%1 of %2 dots", "message; how many of the panel's dots the row takes"},
    {"txtLastUnseen", "the last character will not be seen",
     "message; the panel's dots do not reach"},
    {"txtSomeUnseen", "the last %1 characters will not be seen",
     "message; the panel's dots do not reach"},
    {"txtRowFull", "The row is full.", "message, scrolling message; a key was refused"},
    {"txtOneNoRoom", "The row is full: one character was left out.",
     "message, scrolling message; a paste was cut"},
    {"txtNoRoom", "The row is full: %1 characters were left out.",
     "message, scrolling message; a paste was cut"},
    {"txtOneNoRow", "There is no further row: one character was left out.",
     "message, scrolling message; a paste of several lines was cut"},
    {"txtNoRow", "There is no further row: %1 characters were left out.",
     "message, scrolling message; a paste of several lines was cut"},
    {"txtNoCharacter", "The panels have no character %1.",
     "message, scrolling message; a key was refused, %1 is what it types"},
    {"txtNoCharacters", "The panels do not have %1: %2 characters were left out.",
     "message, scrolling message; a paste was cut, %1 are the characters, each once"},
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
    {"txtChooseCommand", "Choose a command.", "Command, Send, no command chosen"},
    {"txtSentOver", "Sent over Com %1, %2",
     "sending a scrolling message; %1 is the port, %2 the device"},
    {"txtNotSaved", "not saved", "the editors, beside the file's name"},
    // Below the question whether to save
    {"txtSavedAs", "It will be saved as \"%1\".", "the save question; %1 is the file"},
    {"txtReplaced", "An older file of this name will be replaced.",
     "the save question, new work and a NEW.MSG, NEW.SCH or NEW.SRL from before"},
    {"txtOtherName", "You will be asked for another name: \"%1\" was not opened.",
     "the save question, after a file that could not be opened; %1 is that file"},
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
    {"txtSomeRows", "%1 of %2 rows have arrived, missing: %3.", "sending, stopped or failed"},
    {"txtNotAcknowledged", "The panel has not acknowledged it.", "sending, stopped or failed"},
    {"txtTried", "Panel ID %1 was tried %2 times.", "sending failed"},
    // Why something is not done, and what to do, below a message
    {"txtNoFileYet", "No file has been chosen yet.", "a message about a file"},
    {"txtIsFolder", "%1 is a folder. Choose a file in it.",
     "a message about a file; %1 is its path, as in the following"},
    {"txtNoOrdinaryFile", "%1 is no ordinary file.", "a message about a file"},
    {"txtMoved",
     "It has been moved or renamed, or was not saved yet. Save it, or choose another one.",
     "below \"File not found\""},
    {"txtIsPage", "%1 is a page.", "a file of another kind was chosen"},
    {"txtIsSchedule", "%1 is a schedule.", "a file of another kind was chosen"},
    {"txtIsScrolling", "%1 is a scrolling message.", "a file of another kind was chosen"},
    {"txtBegins", "%1 begins with \"%2\".",
     "a file of another kind was chosen; %2 is its first line"},
    {"txtEmptyFile", "%1 is empty.", "a file of another kind was chosen"},
    {"txtEndsFirst", "%1 ends after its first line.", "a file that breaks off"},
    {"txtLongLine", "A line of %1 is longer than %2 bytes.", "a file that cannot be read"},
    {"txtChoosePage", "Choose a page (.msg).", "a file of another kind was chosen"},
    {"txtChooseSchedule", "Choose a schedule (.sch).", "a file of another kind was chosen"},
    {"txtChooseScrolling", "Choose a scrolling message (.srl).",
     "a file of another kind was chosen"},
    {"txtElsewhere", "Save it in another folder or under another name.", "a save failed"},
    {"txtReadWrite", "Make sure that this file can be read and written, then press \"%1\" again.",
     "Config, OK, the file cannot be saved; %1 is the button"},
    {"txtRoomAgain", "Make room there, then press \"%1\" again.",
     "Config, OK, full disk; %1 is the button"},
    {"txtMakeRoom", "Make room there, or save it on another disk.", "a save failed, full disk"},
    {"txtLongPath", "The path has %1 characters, %2 are possible.", "Save As, schedule"},
    {"txtMoveFile", "Move or rename the file.", "schedule, a path that it cannot hold"},
    {"txtPathLetters", "%1 has characters that the code page does not have.",
     "schedule, a path that it cannot hold"},
    {"txtPathName", "A schedule cannot hold the name %1.", "schedule, a path that it cannot hold"},
    {"txtIsADirectory", "Is a directory", "a save failed, what the system says"},
    {"txtNotADirectory", "Not a directory", "a save failed, what the system says"},
    {"txtLongName", "File name too long", "a save failed, what the system says"},
    {"txtLargeFile", "File too large", "a save failed, what the system says"},
    {"txtNoSpace", "No space left on device", "a save failed, what the system says"},
    {"txtReadOnly", "Read-only file system", "a save failed, what the system says"},
    {"txtCannotRead", "The file cannot be read.", "Config, OK"},
    {"txtTooLarge", "The file would be too large.", "Config, OK"},
    {"txtPageSize", "%1 is made for %2x%3. A page has 1 to 12 rows and at least 5 dot columns.",
     "a page that cannot be opened or sent; %2 rows, %3 columns"},
    {"txtMissingRow", "%1 ends early: row %2 of %3 is missing.",
     "a page that cannot be opened or sent"},
    {"txtWrongRow", "The line of row %1 in %2 bears the number of another row.",
     "a page that cannot be opened; %2 is the file"},
    {"txtWrongLine", "The line \"%1\" of %2 is missing or holds no possible number.",
     "a schedule that cannot be opened or sent; %2 is the file"},
    {"txtMissingStep", "%1 ends early: message %2 of %3 is missing.",
     "a schedule that cannot be opened or sent"},
    {"txtManyFiles", "%1 names more than 26 different message files.",
     "a schedule that cannot be sent"},
    {"txtPageAndPanel", "The page is %1, %2 is %3.",
     "\"Dimension not matched!\"; %1 and %3 are sizes, %2 is the panel"},
    {"txtScheduleAndPanel", "The schedule is %1, %2 is %3.",
     "\"Dimension not matched!\"; %1 and %3 are sizes, %2 is the panel"},
    {"txtPageAndSchedule", "The page is %1, the schedule is %2.",
     "\"Dimension not matched!\", sizes"},
    {"txtOneSize", "Choose a file and a panel of one size.", "\"Dimension not matched!\""},
    {"txtChoosePanel", "Choose a panel from the list.", "windows that send, no panel chosen"},
    {"txtSetUpPanel", "Set up a panel: Config in the main window.",
     "windows that send, New; no panel configured"},
    {"txtEnterAddress", "%1 has no usable IP address: enter it in Config.",
     "sending a message over TCP/IP; %1 is the panel"},
    {"txtPageRange", "A page is a number from 1 to 120.", "\"Invalid Page Value!\""},
    {"txtLines", "%1 has the lines 1 to %2.", "sending a scrolling message; %1 is the panel"},
    {"txtNoLetter", "No letter has been entered.", "sending a schedule"},
    {"txtWrongLetter", "\"%1\" is no letter of a schedule.",
     "sending a schedule; %1 is what was entered"},
    {"txtAddInEditor", "Add a message file in the schedule editor.",
     "sending a schedule without messages"},
    {"txtPressAdd", "Press \"%1\" and choose a message file.",
     "schedule, nothing to save; %1 is the button"},
    {"txtMostSteps", "%1 messages are the most. Delete one first.", "schedule, Add and Insert"},
    {"txtDeleteStep",
     "Delete a message: files that have been chosen and are not in the table count no more then.",
     "schedule, 26 different files"},
    {"txtTimeRange", "Enter a number from 0 to %1, or ** for all.", "schedule, hour and minute"},
    {"txtIDRange", "Enter an ID number from 0 to %1.", "Config, Add"},
    {"txtRowRange", "Enter 1 to %1 rows.", "Config, Add"},
    {"txtColumnRange", "Enter 1 to %1 dot columns.", "Config, Add"},
    {"txtPortRange", "Enter a port from 1 to %1, or none for port %2.", "Config, Add"},
    {"txtLongEntry",
     "The entry of a panel has at most %1 characters in the file: enter a port of fewer digits.",
     "Config, Add"},
    {"txtNoAddressText", "\"%1\" is not four numbers from 0 to 254 with points between them.",
     "Config, an IP address that is none; %1 is what was entered"},
    // F1
    {"txtNoManual", "The manual is missing.", "F1, there is no manual"},
    {"txtManualPlace", "It should be here:", "F1, there is no manual; its path follows"},
    {"txtNoBrowser", "No program opens the manual.", "F1, there is no browser"},
    {"txtManualIsHere", "It is here:", "F1, there is no browser; the path of the manual follows"},
    // The launcher
    {"txtAbout", "About", "launcher, the menu of the right mouse button, and what it shows"},
    {"txtProgramFolder", "Program folder: %1", "launcher, tool tip and About; %1 is the path"},
    {"txtLicences", "Brivon is under the MIT license, the toolkit Qt %1 under the GNU LGPL 3.",
     "launcher, About; %1 is the toolkit's version"},
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
