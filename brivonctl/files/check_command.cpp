#include "files/check_command.h"

#include <memory>
#include <string>
#include <vector>

#include "files/file_check.h"
#include "files/report_text.h"
#include "usage/command_line.h"
#include "usage/exit_status.h"
#include "usage/output.h"
#include "usage/program_folder.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

struct CheckOptions {
  FolderOption folder;
  std::vector<std::string> files;
  bool json = false;
  bool quiet = false;
};

bool Show(const FileReport& report, const CheckOptions& options) {
  if (options.json) return Print(Stream::kOutput, ReportJson(report));
  const bool is_fine = !report.IsRefused() && report.Warnings() == 0;
  return (options.quiet && is_fine) || PrintText(Stream::kOutput, ReportText(report));
}

QString RefusalText(const CheckSummary& summary) {
  if (summary.files == 1) return summary.first;
  return u"%1 of %2 files refused; the first: %3"_s.arg(summary.refused)
      .arg(summary.files)
      .arg(summary.first);
}

int Check(const CheckOptions& options) {
  if (const QString wrong = UseFolder(options.folder, false); !wrong.isEmpty()) {
    Complain(wrong);
    return kRefused;
  }
  CheckSummary summary;
  summary.files = static_cast<int>(options.files.size());
  if (options.json && !Print(Stream::kOutput, StartJson(summary.files))) return kSomeFailed;
  for (const std::string& name : options.files) {
    const FileReport report = CheckFile(TextOf(name));
    if (!Show(report, options)) return kSomeFailed;
    summary.warnings += report.Warnings();
    if (!report.IsRefused()) continue;
    if (++summary.refused == 1) {
      summary.first = Printable(report.path) + u": "_s + report.FirstError();
    }
  }
  const int status = summary.refused == 0 ? kAllDone : kRefused;
  if (options.json && !Print(Stream::kOutput, SummaryJson(summary, status))) return kSomeFailed;
  if (summary.refused > 0) Complain(RefusalText(summary));
  return status;
}

}  // namespace

void AddCheck(CommandLine* line) {
  const auto options = std::make_shared<CheckOptions>();
  CLI::App* command =
      line->Add("check", "Says what .msg, .sch and .srl files are, and what is wrong where",
                [options] { return Check(*options); });
  command->add_option("FILE", options->files, "The files; what they are is told by their content")
      ->required()
      ->type_name("");
  command->add_flag("--json", options->json, "Prints one object of JSON a line");
  command->add_flag("--quiet", options->quiet, "Prints only the files with a problem");
  AddFolderOption(command, &options->folder);
}

}  // namespace BrivonCtl
