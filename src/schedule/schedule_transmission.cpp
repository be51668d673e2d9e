#include "schedule/schedule_transmission.h"

#include <algorithm>
#include <optional>

#include <QHash>

#include "base/code_page.h"
#include "base/file_checks.h"
#include "base/files.h"
#include "base/text.h"
#include "language/display_feature.h"
#include "language/file_remedies.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "page/message_transmission.h"
#include "panel_line/framing.h"
#include "panel_line/waits.h"
#include "schedule/schedule.h"
#include "schedule/schedule_file.h"
#include "schedule/schedule_reader.h"
#include "schedule/step_file.h"
#include "sending/sending_words.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::TranslateMessage;

constexpr int kPausesAheadOfTheSchedule = 3;

/// A step of the schedule as the panel is told it.
struct Entry {
  qsizetype file;  // its place among the different files, from 0
  qint16 delay;
  char feature;
};

struct Plan {
  ScheduleHead head;
  QStringList files;  // the different message files' names, in the order of first appearance
  QList<Entry> entries;
};

QByteArray PageOf(char letter, qsizetype file) {
  return ZeroPadded((letter - 'A') * kPagesOfALetter + 1 + static_cast<int>(file), 3);
}

/// Two digits for an hour or minute that is a number; any other text as it is.
QByteArray TimeText(const QByteArray& value) {
  const QByteArray number = TrimBlanks(value);
  const bool is_number = !number.isEmpty() && std::all_of(number.begin(), number.end(), [](char c) {
    return c >= '0' && c <= '9';
  });
  return is_number ? ZeroPadded(LeadingNumber16(number), 2) : value;
}

/// Nothing for a file that ends early or names more than kMostDistinctFiles.
std::optional<Plan> ReadPlan(const QString& path, const FileSource& files) {
  ScheduleReader file(path, files);
  if (!file.Head()) return std::nullopt;
  const CodePage& code_page = CodePage::System();
  const FeatureNames features;
  Plan plan{*file.Head(), {}, {}};
  QHash<QString, qsizetype> places;  // of the files, by their names in upper case
  while (plan.entries.size() < plan.head.sequences) {
    const std::optional<QByteArray> path_line = file.NextPath();
    const std::optional<SequenceDetails> details = file.NextDetails();
    if (!path_line || !details) return std::nullopt;
    const QString name = StepFileName(*path_line);
    const QString compared = name.toUpper();
    if (!places.contains(compared)) {
      places.insert(compared, plan.files.size());
      plan.files.append(name);
    }
    const QChar feature = features.Code(code_page.ToText(details->feature));
    plan.entries.append({places.value(compared), details->delay, feature.toLatin1()});
  }
  if (plan.files.size() > kMostDistinctFiles) return std::nullopt;
  return plan;
}

bool IsEmpty(const Plan& plan) {
  return std::all_of(plan.files.begin(), plan.files.end(),
                     [](const QString& file) { return file.isEmpty(); });
}

/// What keeps a message file from being sent; nothing where nothing does.
std::optional<Refusal> FileRefusal(const QString& name, Dimension dimension,
                                   const FileSource& files) {
  const QString file = files.Find(InProgramFolder(name));
  const QString end = u": "_s + name;
  const bool exists = files.Exists(file);
  const std::optional<Dimension> found = IsMessageFile(file, files);
  const std::optional<StepFault> fault = StepFaultOf(exists, found, dimension);
  if (!fault) return std::nullopt;
  const auto remedy = [&] {
    switch (*fault) {
      case StepFault::kMissing:
        return MissingFileRemedy(file);
      case StepFault::kNoPage:
        return WrongKindRemedy(file, FileSort::kPage);
      case StepFault::kOtherSize:
        return StepRemedy(*found, dimension);
    }
    return QString();
  };
  return Refusal{TranslateMessage(StepFaultText(*fault)) + end, remedy()};
}

/// Why ReadPlan() gives nothing.
QString PlanRemedy(const QString& path, const FileSource& files) {
  FileFailure failure;
  if (!LoadScheduleFile(path, &failure, files)) return ScheduleFileRemedy(path, failure);
  return TranslateMessage(u"%1 names more than 26 different message files."_s).arg(path);
}

/// As CheckScheduleFile() says; `plan` is what was read of the file.
std::optional<Refusal> PlanRefusal(const QString& path, const QString& letter,
                                   const FileSource& files, std::optional<Plan>& plan) {
  if (!ScheduleLetter(letter)) {
    return Refusal{TranslateMessage(u"Please enter A-J"_s),
                   letter.isEmpty()
                       ? TranslateMessage(u"No letter has been entered."_s)
                       : TranslateMessage(u"\"%1\" is no letter of a schedule."_s).arg(letter)};
  }
  const QString sent = SentSchedulePath(path);
  plan = ReadPlan(sent, files);
  if (!plan) return Refusal{{}, PlanRemedy(sent, files)};
  if (IsEmpty(*plan)) {
    return Refusal{TranslateMessage(u"Empty Schedule File!"_s),
                   TranslateMessage(u"Add a message file in the schedule editor."_s)};
  }
  for (const QString& name : plan->files) {
    if (auto refusal = FileRefusal(name, plan->head.dimension, files)) return refusal;
  }
  return std::nullopt;
}

QByteArray ScheduleFrame(const Plan& plan, int id, char letter) {
  QList<QByteArray> entries;
  for (const Entry& entry : plan.entries) {
    entries.append(PageOf(letter, entry.file) + ZeroPadded(entry.delay, 2) + entry.feature);
  }
  const QByteArray weekday =
      plan.head.weekday == 0 ? QByteArray("*") : QByteArray::number(plan.head.weekday - 1);
  return AckPrefix(id) + "<T" + letter + '>' + weekday + TimeText(plan.head.hour) +
         TimeText(plan.head.minute) + entries.join(',') + "\r\n";
}

}  // namespace

std::optional<char> ScheduleLetter(const QString& text) {
  if (text.size() != 1) return std::nullopt;
  const char letter = text.at(0).toLatin1();
  if (letter >= 'A' && letter <= 'J') return letter;
  if (letter >= 'a' && letter <= 'j') return static_cast<char>(letter - 'a' + 'A');
  return std::nullopt;
}

QString SentSchedulePath(const QString& path) { return path.trimmed(); }

std::optional<Refusal> CheckScheduleFile(const QString& path, const QString& letter,
                                         const FileSource& files) {
  std::optional<Plan> plan;
  return PlanRefusal(path, letter, files, plan);
}

bool SendScheduleFile(OpenLine& line, const QString& path, int id, const QString& letter_text,
                      const TellRefusal& tell_refusal) {
  std::optional<Plan> plan;
  if (const auto refusal = PlanRefusal(path, letter_text, *line.files, plan)) {
    if (refusal->text.isEmpty()) {
      line.refusal = refusal->remedy;
    } else {
      tell_refusal(*refusal);
    }
    return false;
  }
  const char letter = *ScheduleLetter(letter_text);
  line.progress.files = static_cast<int>(plan->files.size());
  for (qsizetype index = 0; index < plan->files.size(); ++index) {
    const QString& name = plan->files.at(index);
    line.progress.file = static_cast<int>(index) + 1;
    line.progress.file_name = name;
    line.progress.row = line.progress.attempt = 0;
    if (SendMessageFile(line, line.files->Find(InProgramFolder(name)), id, PageOf(letter, index),
                        plan->head.dimension)) {
      continue;
    }
    // Who asked for a stop is told so by who opened the line.
    if (line.timer.stop.made) return false;
    tell_refusal(
        {TranslateMessage(u"Error in sending"_s) + u' ' + name + u'!', WhyNotSent(line, id)});
    line.refusal.clear();  // what has arrived is told behind it
    return false;
  }
  line.progress.row = line.progress.rows = line.progress.attempt = 0;
  line.progress.is_schedule = true;
  for (int pause = 0; pause < kPausesAheadOfTheSchedule; ++pause) {
    WaitTicks(line.timer, line.configuration.delay_period);
  }
  line.status(ModuleLanguage::TranslateText(u"Schedule--->"_s));
  DiscardInput(line.link);
  const bool sent = SendUntilAcknowledged(line, id, ScheduleFrame(*plan, id, letter), [] {}) &&
                    HasArrived(line, id);
  if (sent) line.status(ModuleLanguage::TranslateText(u"<--- Ack"_s));
  return sent;
}

}  // namespace Brivon1
