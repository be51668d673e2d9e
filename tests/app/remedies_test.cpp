// What stands below every message of the manual's tables: why, and what to do.
#include <functional>
#include <ostream>
#include <string>

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include "app/remedy_stage.h"

using namespace Qt::StringLiterals;
using namespace remedies;

namespace {

/// One message of one table of the manual.
struct Message {
  const char* heading;
  const char* text;    // how it begins
  std::string remedy;  // "%1" is the program folder; of one that needs none, why it does not
  std::function<Refusal(Stage&)> provoke;  // empty where the message needs no remedy
};

void PrintTo(const Message& message, std::ostream* out) {
  *out << message.heading << ": " << message.text;
}

// The tables, so that each line below names its own.
constexpr const char* kConfig = "Setting up panels and the link";
constexpr const char* kOpening = "Beginning a page";
constexpr const char* kSaving = "Saving";
constexpr const char* kPage = "Messages about a page that is sent";
constexpr const char* kSchedules = "The files of a schedule";
constexpr const char* kSchedule = "Sending a schedule";
constexpr const char* kScrolling = "Sending a scrolling message";
constexpr const char* kCommands = "Commands";

// Why a message has no remedy.
constexpr const char* kSucceeded = "it tells a success";

constexpr const char* kMoved =
    ": No such file or directory\nIt has been moved or renamed, or was not saved yet. Save it, or "
    "choose another one.";
constexpr const char* kSetUp = "Set up a panel: Config in the main window.";
constexpr const char* kChoose = "Choose a panel from the list.";
constexpr const char* kNoPort = "/nowhere: No such file or directory";
constexpr const char* kNoServer = "127.0.0.1:1: Connection refused";
constexpr const char* kDelete =
    "Delete a message: files that have been chosen and are not in the table count no more then.";
constexpr const char* kSerial =
    "SendMode=RS232\r\nBaudrate=9600\r\nComPort=2\r\n[Serial Ports]\r\nCom2=/nowhere\r\n";
constexpr const char* kNetwork = "SendMode=TCPIP\r\n";

Refusal NoPort(Stage& stage) { return SendPageOver(stage, kSerial); }
Refusal NoServer(Stage& stage) { return SendPageOver(stage, kNetwork); }
Refusal SendingFailed(Stage& stage) { return SendBrokenPage(stage); }

QString In(Stage& stage, const char* name) { return stage.Root() + QString::fromUtf8(name); }

std::string Gone(const char* name) { return std::string("%1/") + name + kMoved; }

const Message kMessages[] = {
    {kConfig, "Input is not Valid!", "Enter an ID number from 0 to 255.",
     [](Stage& s) { return Config(s, "txtRow", "4"); }},
    {kConfig, "Invalid IP Address!",
     "\"1.2.3\" is not four numbers from 0 to 254 with points between them.",
     [](Stage& s) { return Config(s, "txtIPAddress", "1.2.3"); }},
    {kConfig, "Invalid path!",
     "%1/brivon.ini: The file cannot be read.\nMake sure that this file can be read and written, "
     "then press \"OK\" again.",
     SaveConfigOntoFolder},
    {kConfig, "Drive not available!",
     "%1/brivon.ini: File too large\nMake room there, then press \"OK\" again.",
     SaveConfigOntoFullDisk},

    {kOpening, "File not found!", Gone("gone.msg"),
     [](Stage& s) { return OpenIn<frmMsgEditor>(s, "gone.msg"); }},
    {kOpening, "Error in opening file!", "%1/week.sch is a schedule.\nChoose a page (.msg).",
     [](Stage& s) { return OpenIn<frmMsgEditor>(s, "week.sch"); }},
    {kOpening, "Error in Opening file!", "%1/short.msg ends early: row 2 of 4 is missing.",
     [](Stage& s) { return OpenIn<frmMsgEditor>(s, "short.msg"); }},

    {kSaving, "Drive not available!",
     "%1/page.msg: File too large\nMake room there, or save it on another disk.", SavePage},
    {kSaving, "Invalid path!", "The path has 102 characters, 100 are possible.", SavePageAs},

    {kPage, "File not found!", Gone("gone.msg"),
     [](Stage& s) { return SendPage(In(s, "gone.msg"), Stage::Panel()); }},
    {kPage, "Invalid ID Selection!", kChoose,
     [](Stage& s) { return SendPage(In(s, "page.msg"), std::nullopt); }},
    {kPage, "Invalid Page Value!", "A page is a number from 1 to 120.",
     [](Stage& s) { return SendPage(In(s, "page.msg"), Stage::Panel(), ""); }},
    {kPage, "Error in opening file!", "%1/text.srl is a scrolling message.\nChoose a page (.msg).",
     [](Stage& s) { return SendPage(In(s, "text.srl"), Stage::Panel()); }},
    {kPage, "Dimension not matched!",
     "The page is 12x192, ID001 is 4x96.\nChoose a file and a panel of one size.",
     [](Stage& s) { return SendPage(In(s, "wide.msg"), Stage::Panel()); }},
    {kPage, "IP address is null or invaild", "ID002 has no usable IP address: enter it in Config.",
     [](Stage& s) { return SendPage(In(s, "page.msg"), Stage::Panel(2)); }},
    {kPage, "Fail to initialize communication port!", kNoPort, NoPort},
    {kPage, "Cannot create TCP link!", kNoServer, NoServer},
    {kPage, "Aborted!", "1 of 4 rows have arrived, missing: 3.",
     [](Stage&) {
       return Refusal{u"Aborted!"_s, Brivon1::ArrivedText({.row = 2, .rows = 4, .attempt = 1}, 1)};
     }},
    {kPage, "Transmission finished!", kSucceeded, {}},
    {kPage, "Transmission failure!", "%1/short.msg ends early: row 2 of 4 is missing.",
     SendingFailed},

    {kSchedules, "Schedule is full!", "12 messages are the most. Delete one first.",
     [](Stage& s) {
       s.WriteSchedule("full.sch", QList<QByteArray>(12, "page.msg"));
       return AddToSchedule(s, "full.sch", In(s, "page.msg"));
     }},
    {kSchedules, "Not Message File Format!", "%1/week.sch is a schedule.\nChoose a page (.msg).",
     [](Stage& s) { return AddToSchedule(s, "week.sch", In(s, "week.sch")); }},
    {kSchedules, "Dimension not matched!", "The page is 12x192, the schedule is 4x96.",
     [](Stage& s) { return AddToSchedule(s, "week.sch", In(s, "wide.msg")); }},
    {kSchedules, "Invalid path!",
     "The path has 102 characters, 100 are possible.\nMove or rename the file.",
     [](Stage& s) {
       const QString path = s.Root().leftJustified(102, u'x');
       QFile::copy(In(s, "page.msg"), path);
       return AddToSchedule(s, "week.sch", path);
     }},
    {kSchedules, "Cannot Exceed 26 different message file!", kDelete,
     [](Stage& s) { return Add27(s, "butAdd"); }},
    {kSchedules, "Cannot Exceed 26 different Message Files!", kDelete,
     [](Stage& s) { return Add27(s, "butInsert"); }},
    {kSchedules, "Hour Format Wrong!", "Enter a number from 0 to 23, or ** for all.",
     [](Stage& s) { return SaveSchedule(s, "txtHour", "24"); }},
    {kSchedules, "Minute Format Wrong!", "Enter a number from 0 to 59, or ** for all.",
     [](Stage& s) { return SaveSchedule(s, "txtMin", "60"); }},
    {kSchedules, "Empty schedule is not allowed!", "Press \"Add\" and choose a message file.",
     [](Stage& s) { return LeaveEmptySchedule(s, "butExit"); }},
    {kSchedules, "Cannot Save: Empty Schedule!", "Press \"Add\" and choose a message file.",
     [](Stage& s) { return LeaveEmptySchedule(s, "butSend"); }},
    {kSchedules, "Error in opening file!", "%1/page.msg is a page.\nChoose a schedule (.sch).",
     [](Stage& s) { return OpenIn<frmSchedule>(s, "page.msg"); }},
    {kSchedules, "File not found", Gone("sub/week.sch"),
     [](Stage& s) { return SendOpenSchedule(s, [&s] { QFile::remove(In(s, "sub/week.sch")); }); }},
    {kSchedules, "Path Not Valid", Gone("sub/week.sch"),
     [](Stage& s) {
       return SendOpenSchedule(s, [&s] { QDir(In(s, "sub")).removeRecursively(); });
     }},
    {kSchedules, "Drive Not Available!",
     "%1/sub/week.sch: File too large\nMake room there, or save it on another disk.",
     [](Stage& s) {
       std::optional<FullDisk> full_disk;
       return SendOpenSchedule(s, [&] {
         s.Type("txtHour", "7");
         s.boxes.Answer(QMessageBox::Yes);
         full_disk.emplace(20);
       });
     }},

    {kSchedule, "File not found", Gone("gone.sch"),
     [](Stage& s) { return SendSchedule(In(s, "gone.sch"), Stage::Panel()); }},
    {kSchedule, "No ID Selected!", kSetUp,
     [](Stage& s) {
       s.folder.Configure("");
       return SendSchedule(In(s, "week.sch"), std::nullopt);
     }},
    {kSchedule, "Dimension not matched!",
     "The schedule is 4x96, ID001 is 2x80.\nChoose a file and a panel of one size.",
     [](Stage& s) {
       s.folder.Configure("[Dimension Config]\r\nID001=2x80,Tri\r\n");
       return SendSchedule(In(s, "week.sch"), Stage::Panel());
     }},
    {kSchedule, "Fail to initialize communication port!", kNoPort, NoPort},
    {kSchedule, "Cannot create TCP link!", kNoServer, NoServer},
    {kSchedule, "Please enter A-J", "\"K\" is no letter of a schedule.",
     [](Stage& s) { return CheckSchedule(In(s, "week.sch"), "K"); }},
    {kSchedule, "File not found:", Gone("gone.msg"),
     [](Stage& s) { return CheckSchedule(s.WriteSchedule("a.sch", {"gone.msg"})); }},
    {kSchedule, "Error in opening file:", "%1/week.sch is a schedule.\nChoose a page (.msg).",
     [](Stage& s) { return CheckSchedule(s.WriteSchedule("a.sch", {"week.sch"})); }},
    {kSchedule, "Dimension Not Match:", "The page is 12x192, the schedule is 4x96.",
     [](Stage& s) { return CheckSchedule(s.WriteSchedule("a.sch", {"wide.msg"})); }},
    {kSchedule, "Empty Schedule File!", "Add a message file in the schedule editor.",
     [](Stage& s) { return CheckSchedule(s.WriteSchedule("a.sch", {""})); }},
    {kSchedule, "Error in sending", "%1/short.msg ends early: row 2 of 4 is missing.",
     [](Stage& s) { return SendBrokenSchedule(s); }},
    {kSchedule, "Transmission failure!", "%1/short.msg ends early: row 2 of 4 is missing.",
     SendingFailed},
    {kSchedule, "Transmission finished!", kSucceeded, {}},
    {kSchedule, "Schedules file is sent successfully through network", kSucceeded, {}},

    {kScrolling, "File not found!", Gone("gone.srl"),
     [](Stage& s) { return SendScrolling(s, "gone.srl", true, "1"); }},
    {kScrolling, "File not found", Gone("gone.srl"),
     [](Stage& s) { return Browse<frmSendShift>(s, "gone.srl"); }},
    {kScrolling, "Error in opening file",
     "%1/page.msg is a page.\nChoose a scrolling message (.srl).",
     [](Stage& s) { return Browse<frmSendShift>(s, "page.msg"); }},
    {kScrolling, "Invalid ID Selection!", kChoose,
     [](Stage& s) { return SendScrolling(s, "text.srl", false, "1"); }},
    {kScrolling, "Invalid Line No.!", "ID001 has the lines 1 to 4.",
     [](Stage& s) { return SendScrolling(s, "text.srl", true, ""); }},
    {kScrolling, "Line No. Not Valid!", "ID001 has the lines 1 to 4.",
     [](Stage& s) { return SendScrolling(s, "text.srl", true, "5"); }},
    {kScrolling, "Fail to initialize communication port!", kNoPort, NoPort},
    {kScrolling, "Transmission finished!", kSucceeded, {}},
    {kScrolling, "Transmission failure!", "%1/short.msg ends early: row 2 of 4 is missing.",
     SendingFailed},

    {kCommands, "Empty ID!", kSetUp,
     [](Stage& s) {
       s.folder.Configure("");
       return Brivon1::CheckCommandPanel(std::nullopt, Brivon1::Store()).value_or(Refusal{});
     }},
    {kCommands, "Invalid Page Value!", "A page is a number from 1 to 120.",
     [](Stage&) { return Brivon1::CheckCommandPage(u"121"_s).value_or(Refusal{}); }},
    {kCommands, "Fail to initialize communication port!", kNoPort, NoPort},
    {kCommands, "Cannot create TCP link!", kNoServer, NoServer},
};

class Remedies : public testing::TestWithParam<Message> {};

INSTANTIATE_TEST_SUITE_P(OfTheManual, Remedies, testing::ValuesIn(kMessages));

TEST_P(Remedies, TheMessageSaysWhyAndWhatToDo) {
  const Message& message = GetParam();
  if (!message.provoke) {
    EXPECT_FALSE(message.remedy.empty());
    return;
  }
  Stage stage;
  const Refusal said = message.provoke(stage);
  EXPECT_TRUE(said.text.startsWith(QString::fromUtf8(message.text))) << said.text.toStdString();
  const QString remedy = QString(said.remedy).replace(stage.Root(), u"%1/"_s);
  EXPECT_EQ(remedy.toStdString(), message.remedy);
}

/// "heading: message" for every quoted text in the first column of the manual's tables of messages.
QStringList MessagesOfTheManual() {
  static const QRegularExpression quoted(u"\"([^\"]{3,})\""_s);
  QFile file(QStringLiteral(BRIVON_MANUAL));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QStringList messages;
  QString heading;
  bool is_table = false;
  for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
    if (line.startsWith(u'#')) heading = QString(line).remove(u'#').trimmed();
    if (!line.startsWith(u'|')) {
      is_table = false;
      continue;
    }
    const QString cell = line.section(u'|', 1, 1).trimmed();
    if (cell == u"message" || cell == u"other message") is_table = true;
    if (!is_table) continue;
    for (auto match = quoted.globalMatch(cell); match.hasNext();) {
      const QString text = match.next().captured(1);
      if (text != u"Browse") messages.append(heading + u": "_s + text.trimmed());
    }
  }
  return messages;
}

TEST(RemediesOfTheManual, EveryMessageOfItsTablesIsInThisOne) {
  QSet<QString> known;
  for (const Message& message : kMessages) {
    known.insert(QString::fromUtf8(message.heading) + u": "_s + QString::fromUtf8(message.text));
  }
  const QStringList messages = MessagesOfTheManual();
  EXPECT_GT(messages.size(), 60);
  for (const QString& message : messages) {
    EXPECT_TRUE(known.contains(message)) << message.toStdString();
  }
}

}  // namespace
