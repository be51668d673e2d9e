#include "files/show_command.h"

#include <memory>
#include <optional>
#include <string>

#include <QFile>
#include <QFileInfo>

#include "base/files.h"
#include "base/shell.h"
#include "files/file_check.h"
#include "files/png_picture.h"
#include "files/shown_file.h"
#include "files/terminal_picture.h"
#include "usage/command_line.h"
#include "usage/exit_status.h"
#include "usage/output.h"
#include "usage/program_folder.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

struct ShowOptions {
  FolderOption folder;
  std::string file;
  std::optional<std::string> output;
  bool mono = false;
};

int Refuse(const QString& reason, int status = kRefused) {
  Complain(reason);
  return status;
}

/// Whether nothing would be lost but an older picture.
bool MayBeReplaced(const QString& path) {
  const QByteArray signature = "\x89PNG\r\n\x1a\n";
  if (!QFileInfo(path).isFile()) return true;  // where a file cannot be, none is written
  QFile file(path);
  return file.open(QIODevice::ReadOnly) &&
         (file.size() == 0 || file.read(signature.size()) == signature);
}

/// What speaks against a picture file of this name; empty where nothing does.
QString OutputRefusal(const QString& output) {
  if (output == "-"_L1) return {};
  const FileKind kind = KindOf(output);
  if (kind == FileKind::kUnknown) {
    if (MayBeReplaced(output)) return {};
    return u"--output: %1 is no picture (PNG) and is not replaced; name another file"_s.arg(
        Printable(output));
  }
  return u"--output: %1 holds a %2 and is not replaced; name another file"_s.arg(
      Printable(output),
      kind == FileKind::kSchedule ? u"schedule"_s : KindName(kind) + u" message"_s);
}

int SavePicture(const ShownFile& shown, const QString& file, const QString& output) {
  if (shown.is_schedule) {
    return Refuse(
        u"%1: a schedule has several pages and --output takes one; name one of its "
        "message files"_s.arg(file));
  }
  const QByteArray png = PngPicture(shown.pages.front().picture);
  if (output == "-"_L1) return Print(Stream::kOutput, png) ? kAllDone : kSomeFailed;
  QString reason;
  const QString failure = Brivon1::SaveFailureText(Brivon1::SaveWholeFile(output, png, &reason));
  if (failure.isEmpty()) return kAllDone;
  return Refuse(u"--output: %1: %2 %3; name a file in a folder that you may write to"_s.arg(
      Printable(output), failure, reason));
}

int PrintPages(const ShownFile& shown) {
  const Screen screen = StandardOutput();
  QByteArray between;
  for (const ShownPage& page : shown.pages) {
    const QByteArray heading =
        page.heading.isEmpty() ? QByteArray() : Brivon1::StreamText(page.heading) + '\n';
    if (!Print(Stream::kOutput, between + heading + TerminalPicture(page.picture, screen)))
      return kSomeFailed;
    between = "\n";
  }
  return kAllDone;
}

int Show(const ShowOptions& options) {
  if (const QString wrong = UseFolder(options.folder, false); !wrong.isEmpty()) {
    return Refuse(wrong);
  }
  const QString output = TextOf(options.output.value_or(""));
  if (options.output && output.isEmpty()) {
    return Refuse(u"--output: the name is empty; name a file"_s, kWrongUse);
  }
  if (const QString wrong = OutputRefusal(output); !wrong.isEmpty()) {
    return Refuse(wrong, kWrongUse);
  }
  const QString path = TextOf(options.file);
  const QString file = Printable(path);
  const ShownFile shown = ReadShownFile(path, options.mono, QDateTime::currentDateTime());
  if (!shown.refusal.isEmpty()) return Refuse(file + u": "_s + shown.refusal);
  return output.isEmpty() ? PrintPages(shown) : SavePicture(shown, file, output);
}

}  // namespace

void AddShow(CommandLine* line) {
  const auto options = std::make_shared<ShowOptions>();
  CLI::App* command =
      line->Add("show", "Shows a page, a scrolling message or a schedule's pages as a panel does",
                [options] { return Show(*options); });
  command->add_option("FILE", options->file, "The file; what it is is told by its content")
      ->required()
      ->type_name("");
  command
      ->add_option("--output", options->output,
                   "Writes a picture (PNG) there, \"-\" for standard output, instead of showing it")
      ->type_name("PNG");
  command->add_flag("--mono", options->mono, "Shows it as a panel of one colour");
  AddFolderOption(command, &options->folder);
}

}  // namespace BrivonCtl
