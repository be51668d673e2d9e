// A report to a person: on a terminal a line for each panel that moves and a total, without one a
// plain line for each panel that has ended, both on standard error; the table at the end is the
// result and goes to standard output.
#pragma once

#include <map>

#include <QElapsedTimer>

#include "reports/report.h"
#include "reports/terminal.h"

namespace BrivonCtl {

class TextReport : public Report {
 public:
  explicit TextReport(bool is_quiet) : is_quiet_(is_quiet) {}

  void Begin(const Beginning& beginning) override;
  void TakeIn(const Step& step) override;
  void TakeIn(const Transmission& transmission) override;
  void TakeInFrame(int panel, const QByteArray& frame) override;
  void TakeInRefused(const PanelResult& /*result*/) override {}
  void TakeInStop() override;
  void Refresh() override;
  void End(const Summary& summary) override;

  /// The lines that move, the total last, for a terminal of this size.
  QStringList MovingLines(const Terminal& terminal) const;

 private:
  void Erase();
  void PrintAbove(const QString& line);

  bool is_quiet_;
  int all_ = 0;
  Summary so_far_;
  std::map<int, QString> moving_;  // panel -> how far it has come
  int shown_lines_ = 0;
  bool is_stopping_ = false;
  bool is_dry_run_ = false;
  QElapsedTimer clock_;
  QElapsedTimer since_picture_;
};

}  // namespace BrivonCtl
