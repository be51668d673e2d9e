#include "soak/transfers.h"

#include "soak/site.h"

using namespace Qt::StringLiterals;

void Transfers::RunSite() {
  const quint64 start = start_ + static_cast<quint64>(sites_++);
  Site site(start);
  for (int number = 1; number <= kOfASite; ++number) {
    const Site::Outcome outcome = site.Transfer(number);
    ++count_.transfers;
    if (outcome.end == Told::End::kFinished) ++count_.finished;
    if (outcome.end == Told::End::kFailed) ++count_.failed;
    if (outcome.end == Told::End::kStopped) ++count_.stopped;
    if (outcome.was_cut) ++count_.cut;
    count_.frames += outcome.frames;
    if (leak_ > 0) leaked_.emplace_back(leak_, 'x');
    if (!outcome.wrong.isEmpty()) {
      faults_.append(u"--start %1, transfer %2: %3"_s.arg(start).arg(number).arg(outcome.wrong));
    }
  }
  count_.milliseconds += site.Milliseconds();
}
