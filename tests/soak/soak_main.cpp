// The windows that send, against panels that misbehave on real lines, for as many minutes as are
// asked for. The last lines say what grows; the status is 0 only where nothing does and what was
// told was always true.
#include <fcntl.h>

#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QCommandLineParser>
#include <QTest>

#include "soak/hostility.h"
#include "soak/operator_hands.h"
#include "soak/watch.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kSecond = 1000;
constexpr double kWarmUp = 10;  // minutes

void Say(const QString& line) {
  std::printf("%s\n", qUtf8Printable(line));
  std::fflush(stdout);
}

/// The offscreen platform says for each window what it cannot do.
void PassOnMessages(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (text.startsWith("This plugin does not support"_L1)) return;
  std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

/// Loses one of the things that the watch is to find.
void Lose(const QString& what) {
  if (what == "memory"_L1) new char[4096];  // NOLINT: it is lost on purpose
  if (what == "descriptor"_L1 && ::open("/dev/null", O_RDONLY | O_CLOEXEC) < 0) return;
  if (what == "timer"_L1) (new QTimer())->start(kSecond * kSecond);
}

class Soak {
 public:
  Soak(quint64 start, const QString& csv_path) : random_(start), lines_(random_), watch_(csv_path) {
    QObject::connect(&each_second_, &QTimer::timeout,
                     [this] { watch_.Measure(false, transfers_); });
    each_second_.start(kSecond);
    ShowEveryCharacter(lines_);
  }

  /// Whether nothing was wrong.
  bool Run(double minutes, const QString& loses) {
    int wrong = 0;
    while (watch_.Minutes() < minutes && wrong < 10) {
      const QString fault = Transfer();
      if (!fault.isEmpty()) {
        ++wrong;
        Say(u"transfer %1: %2"_s.arg(transfers_).arg(fault));
      }
      Lose(loses);
      if (random_.OneIn(2)) VisitAnEditor(random_, lines_);
      Calm();
    }
    return wrong == 0;
  }

  /// Whether something grows.
  bool Report(double minutes) const {
    bool grows = false;
    Say(u"%1 transfers in %2 minutes: %3 finished, %4 failed, %5 stopped"_s.arg(transfers_)
            .arg(watch_.Minutes(), 0, 'f', 1)
            .arg(finished_)
            .arg(failed_)
            .arg(transfers_ - finished_ - failed_));
    for (const QString& line : watch_.Report(qMin(kWarmUp, minutes / 2), &grows)) Say(line);
    return grows;
  }

 private:
  /// One work from its window. What is wrong then; empty where nothing is.
  QString Transfer() {
    ++transfers_;
    const auto faults = RandomFaults(random_);
    lines_.Begin(random_.OneIn(2), faults);
    const Work work =
        RandomWork(random_, random_.OneOf(lines_.Panels()), lines_.Folder(), transfers_);
    if (random_.OneIn(15)) QTimer::singleShot(random_.Below(3000), [this] { lines_.Cut(); });
    if (random_.OneIn(8)) {
      QTimer::singleShot(random_.Below(2000), [this] { VisitAnEditor(random_, lines_); });
    }
    const int stop_after = random_.OneIn(2) ? random_.Below(4000) : -1;
    const Told told = SendFromItsWindow(work, lines_, stop_after);
    if (told.end == Told::End::kFinished) ++finished_;
    if (told.end == Told::End::kFailed) ++failed_;
    QString wrong = Untruth(told, work, lines_.Engine(), lines_.Received());
    if (wrong.isEmpty() && !lines_.IsReleased()) wrong = u"a line is held"_s;
    if (wrong.isEmpty()) return {};
    return wrong + u", "_s + Describe(work) + u", faults: "_s +
           VirtualPanel::NamesOf(faults).join(u' ') +
           u", told: %1 %2"_s.arg(static_cast<int>(told.end)).arg(told.why);
  }

  void Calm() {
    QTest::qWait(50);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    watch_.Measure(true, transfers_);
  }

  Random random_;
  HostileLines lines_;
  Watch watch_;
  QTimer each_second_;
  qint64 transfers_ = 0;
  qint64 finished_ = 0;
  qint64 failed_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  CountObjects();
  qInstallMessageHandler(PassOnMessages);
  const QApplication application(argc, argv);
  QCommandLineParser options;
  options.setApplicationDescription(u"Sends without end to panels that misbehave."_s);
  const QCommandLineOption minutes(u"minutes"_s, u"How long (1)."_s, u"N"_s, u"1"_s);
  const QCommandLineOption start(u"start"_s, u"The start number of the choices (1)."_s, u"N"_s,
                                 u"1"_s);
  const QCommandLineOption csv(u"csv"_s, u"Where every measurement is written."_s, u"FILE"_s);
  const QCommandLineOption lose(u"lose"_s,
                                u"Lose one with each transfer, to see it found: memory, "
                                "descriptor or timer."_s,
                                u"WHAT"_s);
  options.addOptions({minutes, start, csv, lose});
  options.addHelpOption();
  options.process(application);

  const double length = options.value(minutes).toDouble();
  Soak soak(options.value(start).toULongLong(), options.value(csv));
  const bool all_true = soak.Run(length, options.value(lose));
  const bool grows = soak.Report(length);
  Say(all_true && !grows ? u"nothing grows, and what was told was true"_s : u"FAILED"_s);
  return all_true && !grows ? EXIT_SUCCESS : EXIT_FAILURE;
}
