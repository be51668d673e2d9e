// A report to a program: one object of JSON a line on standard output, as soon as it happens.
#pragma once

#include "reports/report.h"

namespace BrivonCtl {

class JsonReport : public Report {
 public:
  /// Quiet, it leaves the steps out.
  explicit JsonReport(bool is_quiet) : is_quiet_(is_quiet) {}

  void Begin(const Beginning& beginning) override;
  void TakeIn(const Step& step) override;
  void TakeIn(const Transmission& transmission) override;
  void TakeInFrame(int panel, const QByteArray& frame) override;
  void TakeInRefused(const PanelResult& result) override;
  void TakeInStop() override;
  void Refresh() override {}
  void End(const Summary& summary) override;

 private:
  bool is_quiet_;
};

}  // namespace BrivonCtl
