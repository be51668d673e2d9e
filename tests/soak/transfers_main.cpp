// Transfers in virtual time, as many as are asked for. The last lines sum up; the status is 0 only
// where what was told was always true and nothing grew.
#include <cstdio>
#include <cstdlib>

#include <QCommandLineParser>
#include <QCoreApplication>

#include "soak/growth.h"
#include "soak/transfers.h"
#include "soak/usage.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kAllowedBytes = 2;  // for each transfer; the smallest block has 24
constexpr qsizetype kMostFaults = 10;

void Say(const QString& line) {
  std::printf("%s\n", qUtf8Printable(line));
  std::fflush(stdout);
}

QString InWords(qint64 milliseconds) {
  const qint64 minutes = milliseconds / 60'000;
  return u"%1 days %2 h %3 min"_s.arg(minutes / 1440).arg(minutes / 60 % 24).arg(minutes % 60);
}

/// Runs them and says what was wrong; whether nothing was.
bool Run(Transfers& transfers, qint64 count, QList<Measurement>* allocated) {
  while (transfers.Count().transfers < count && transfers.Faults().size() < kMostFaults) {
    const qsizetype before = transfers.Faults().size();
    transfers.RunSite();
    for (const QString& fault : transfers.Faults().mid(before)) Say(fault);
    allocated->append(
        {static_cast<double>(transfers.Count().transfers), static_cast<double>(AllocatedBytes())});
  }
  return transfers.Faults().isEmpty();
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QCommandLineParser options;
  options.setApplicationDescription(
      u"Sends at random, in virtual time, to panels that misbehave."_s);
  const QCommandLineOption count(u"count"_s, u"How many transfers (2000)."_s, u"N"_s, u"2000"_s);
  const QCommandLineOption start(u"start"_s, u"The start number of the choices (1)."_s, u"N"_s,
                                 u"1"_s);
  const QCommandLineOption leak(
      u"leak"_s, u"Lose so many bytes with each transfer, to see it found."_s, u"BYTES"_s, u"0"_s);
  options.addOptions({count, start, leak});
  options.addHelpOption();
  options.process(application);

  Transfers transfers(options.value(start).toULongLong(), options.value(leak).toInt());
  QList<Measurement> allocated;
  const bool all_true = Run(transfers, options.value(count).toLongLong(), &allocated);

  const TransferCount& total = transfers.Count();
  Say(u"%1 transfers from start number %2: %3 finished, %4 failed, %5 stopped, %6 of them cut "
      "short on a slow line; %7 frames; %8 of virtual time"_s.arg(total.transfers)
          .arg(options.value(start))
          .arg(total.finished)
          .arg(total.failed)
          .arg(total.stopped)
          .arg(total.cut)
          .arg(total.frames)
          .arg(InWords(total.milliseconds)));
  // The first half fills what is kept on purpose.
  const Slope slope = FitSlope(From(static_cast<double>(total.transfers) / 2, allocated));
  Say(u"memory: %1 bytes a transfer, to 95 % within %2 of it; allowed %3"_s
          .arg(slope.value, 0, 'f', 2)
          .arg(slope.margin, 0, 'f', 2)
          .arg(kAllowedBytes));
  const bool grows = Grows(slope, kAllowedBytes);
  if (grows) Say(u"memory grows"_s);
  if (!all_true) Say(u"not everything was as it must be"_s);
  return all_true && !grows ? EXIT_SUCCESS : EXIT_FAILURE;
}
