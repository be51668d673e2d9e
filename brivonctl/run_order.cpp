#include "brivonctl/run_order.h"

#include <algorithm>
#include <map>
#include <memory>

#include <QElapsedTimer>
#include <QFileInfo>

#include "brivonctl/start_up.h"
#include "files/file_check.h"
#include "orders/crew.h"
#include "orders/file_copies.h"
#include "orders/order_checks.h"
#include "orders/panel_words.h"
#include "orders/rehearsal.h"
#include "orders/stop_signals.h"
#include "reports/json_events.h"
#include "reports/json_report.h"
#include "reports/log_file.h"
#include "reports/terminal.h"
#include "reports/text_report.h"
#include "store/configuration_store.h"
#include "usage/exit_status.h"
#include "usage/output.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

/// Lines are appended to what is there; no file that Brivon reads is to be spoilt.
QString WhatIsWrongWithLog(const QString& path) {
  const QFileInfo info(path);
  const bool is_there = !path.isEmpty() && info.isFile();
  if (!is_there) return {};
  const QString name = QFileInfo(info.canonicalFilePath()).fileName();
  const bool is_settings = name.compare("brivon.ini"_L1, Qt::CaseInsensitive) == 0 ||
                           name.compare("langSetting.INI"_L1, Qt::CaseInsensitive) == 0;
  if (!is_settings && KindOf(path) == FileKind::kUnknown) return {};
  return u"--log: %1 is a file of Brivon and no log; name another file"_s.arg(path);
}

class OrderRun {
 public:
  OrderRun(Action action, const OrderOptions& options)
      : options_(options), log_(options.is_dry_run ? QString() : TextOf(options.log)) {
    assignment_.order = OrderOf(action, options);
    assignment_.tells_steps =
        !options.is_quiet && (options.is_json || LookAt(Stream::kError).is_terminal);
    if (options.is_json) {
      report_ = std::make_unique<JsonReport>(options.is_quiet);
    } else {
      report_ = std::make_unique<TextReport>(options.is_quiet);
    }
  }

  int Run();

 private:
  QString Prepare();
  QString CheckChosen();
  void Rehearse();
  void CarryOut(Crew& crew);
  void Begin();
  int RunCaught();
  void TakeIn(const Step& step) { report_->TakeIn(step); }
  void TakeIn(const Transmission& transmission);
  int Status() const;
  int End(int status, const QString& reason = {});

  const OrderOptions& options_;
  Assignment assignment_;
  LogFile log_;
  std::unique_ptr<Report> report_;
  EventQueue queue_;
  CheckedPanels panels_;
  std::map<int, PanelResult> results_;
  bool is_log_whole_ = true;
  int refusal_status_ = kRefused;
  QElapsedTimer clock_;
};

/// Takes in the configuration and checks everything. Returns why nothing is sent to anybody, or an
/// empty text.
QString OrderRun::Prepare() {
  if (!queue_.IsOpen()) return u"the system has no more descriptors"_s;
  QString wrong = UseFolder(options_.folder, true);
  if (!wrong.isEmpty()) return wrong;
  assignment_.configuration = Brivon1::Store();
  assignment_.further_transmissions = options_.FurtherTransmissions();
  if (const auto delay = options_.DelayPeriod()) {
    assignment_.configuration.delay_period = static_cast<qint16>(*delay);
  }
  std::shared_ptr<FileCopies> copies;
  if (SendsFile(assignment_.order.action)) {
    copies = std::make_shared<FileCopies>(assignment_.order.path, IsStopRequested);
  }
  assignment_.order.copies = copies;
  wrong = WhatIsWrongWith(assignment_.order, assignment_.configuration);
  if (!wrong.isEmpty()) return wrong;
  wrong = CheckChosen();
  if (!wrong.isEmpty()) return wrong;
  if (copies) copies->TakeDigest(assignment_.order.SentPath());
  if (copies && !copies->ReadFailure().isEmpty()) return copies->ReadFailure();
  if (options_.is_dry_run) return {};
  wrong = WhatIsWrongWithLog(TextOf(options_.log));
  if (!wrong.isEmpty()) return wrong;
  if (log_.Check()) return {};
  return u"--log: %1; name a file in a folder that you may write to"_s.arg(log_.ErrorText());
}

QString OrderRun::CheckChosen() {
  const ChosenPanels chosen = Choose(ReadPanelWords(options_.panels), assignment_.configuration);
  if (!chosen.empty.isEmpty()) {
    return u"--to: no configured panel is \"%1\"; brivonctl list shows the panels that are"_s.arg(
        chosen.empty);
  }
  if (MustBeSure(assignment_.order.action, options_) &&
      AreAll(chosen.ids, assignment_.configuration)) {
    refusal_status_ = kWrongUse;
    return NotSureText(options_);
  }
  panels_ = CheckPanels(assignment_.order, chosen.ids, assignment_.configuration);
  for (const PanelResult& panel : panels_.unfit) results_[panel.panel] = panel;
  const bool goes_on = panels_.unfit.isEmpty() || (options_.skips_unfit && !panels_.fit.isEmpty());
  if (goes_on) return {};
  return u"nothing was sent: "_s + UnfitPanels(panels_.unfit);
}

void OrderRun::Rehearse() {
  for (const Brivon1::PanelListEntry& panel : panels_.fit) {
    const Rehearsal rehearsal =
        BrivonCtl::Rehearse(assignment_.order, panel, assignment_.configuration, assignment_.now);
    for (const QByteArray& frame : rehearsal.frames) report_->TakeInFrame(panel.id, frame);
    results_[panel.id] = rehearsal.result;
  }
}

void OrderRun::TakeIn(const Transmission& transmission) {
  const bool was_begun =
      transmission.result.result != Result::kStopped || transmission.attempts > 0;
  const bool is_logged = !was_begun || log_.Append(LogLine(assignment_.order, transmission));
  if (!is_logged && is_log_whole_) Complain(u"--log: "_s + log_.ErrorText());
  is_log_whole_ = is_log_whole_ && is_logged;
  if (transmission.is_last) results_[transmission.result.panel] = transmission.result;
  report_->TakeIn(transmission);
}

void OrderRun::CarryOut(Crew& crew) {
  constexpr int kBetweenPictures = 200;  // milliseconds
  const bool is_watched = !options_.is_json && assignment_.tells_steps;
  const auto all = results_.size() + static_cast<std::size_t>(panels_.fit.size());
  bool is_stopping = false;
  while (results_.size() < all) {
    queue_.Wait(is_watched ? kBetweenPictures : -1);
    if (IsStopRequested() && !is_stopping) {
      is_stopping = true;
      crew.Stop();
      report_->TakeInStop();
    }
    for (const Happening& happening : queue_.TakeAll()) {
      std::visit([this](const auto& what) { TakeIn(what); }, happening);
    }
    report_->Refresh();
  }
}

int OrderRun::Status() const {
  const auto has = [this](Result result) {
    return std::any_of(results_.begin(), results_.end(),
                       [result](const auto& panel) { return panel.second.result == result; });
  };
  if (has(Result::kStopped)) return kStopped;
  if (has(Result::kFailed) || has(Result::kRefused) || !is_log_whole_) return kSomeFailed;
  if (!IsOutputWhole()) return kSomeFailed;
  return kAllDone;
}

int OrderRun::End(int status, const QString& reason) {
  Summary summary;
  for (const auto& [id, result] : results_) summary.results.append(result);
  summary.milliseconds = clock_.elapsed();
  summary.status = status;
  summary.reason = reason;
  report_->End(summary);
  return status == kAllDone && !IsOutputWhole() ? int{kSomeFailed} : status;
}

void OrderRun::Begin() {
  Beginning beginning;
  beginning.order = assignment_.order;
  for (const Brivon1::PanelListEntry& panel : panels_.fit) beginning.panels.append(panel.id);
  beginning.digest = assignment_.order.Digest();
  beginning.mode = ModeFor(assignment_.order, assignment_.configuration);
  beginning.is_dry_run = options_.is_dry_run;
  report_->Begin(beginning);
  for (const PanelResult& panel : panels_.unfit) report_->TakeInRefused(panel);
}

int OrderRun::RunCaught() {
  const auto refuse = [this](const QString& wrong, int status) {
    Complain(OneLine(wrong));
    for (const PanelResult& panel : panels_.unfit) report_->TakeInRefused(panel);
    return End(status, wrong);
  };
  const QString wrong = Prepare();
  if (IsStopRequested()) return refuse(u"stopped; nothing was sent"_s, kStopped);
  if (!wrong.isEmpty()) return refuse(wrong, refusal_status_);
  if (options_.is_dry_run) {
    Begin();
    Rehearse();
    return End(Status());
  }
  // What its threads tell waits in the queue until the beginning has been told.
  Crew crew(assignment_, ByLine(panels_.fit, ModeFor(assignment_.order, assignment_.configuration)),
            JobsThatFit(options_.Jobs()), queue_);
  if (crew.IsEmpty()) return refuse(u"nothing was sent: the system gives no thread"_s, kRefused);
  Begin();
  CarryOut(crew);
  return End(Status());
}

int OrderRun::Run() {
  clock_.start();
  CatchStopSignals(queue_.WakingEnd());
  const int status = RunCaught();
  ReleaseStopSignals();
  return status;
}

}  // namespace

int RunOrder(Action action, const OrderOptions& options) {
  const QString wrong = WhatIsWrongWith(action, options);
  if (!wrong.isEmpty()) {
    Complain(wrong);
    return kWrongUse;
  }
  return OrderRun(action, options).Run();
}

}  // namespace BrivonCtl
