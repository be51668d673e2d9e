#include "monkey/monkey.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>

#include "monkey/front.h"
#include "monkey/operator_hands.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kLongestWayHome = 40;
constexpr int kLongestStop = 400;  // a step a tick: the attempt in progress, and the line's end
constexpr int kPause = 5;          // ms
constexpr int kOftenEnough = 50;   // one action in as many may have nothing to act at

const QList<VirtualPanel::PanelDescription> kPanels = {
    {1, 4, 96, true}, {2, 2, 96, true}, {26, 12, 192, false}};

// What a start's number says of the program that is started.
bool IsOverTcp(int variant) { return (variant & 1) != 0; }
bool IsGerman(int variant) { return (variant & 2) != 0; }
bool HasNoPanel(int variant) { return variant == 4; }

}  // namespace

Monkey::Monkey(Day day)
    : day_(std::move(day)), chooser_(day_.start.value_or(0)), hang_(day_.hang_ms) {
  if (day_.log.isEmpty()) return;
  log_.setFileName(day_.log);
  if (!log_.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) qFatal("cannot write the log");
}

Monkey::~Monkey() = default;

bool Monkey::Live() {
  while (!is_over_) RunProgram();
  std::printf("%lld actions, %lld of them at nothing\n", static_cast<long long>(done_),
              static_cast<long long>(skipped_));
  // A control may go while it is chosen. A day that is done again is known to have all of them.
  return day_.start ? skipped_ * kOftenEnough <= done_ : skipped_ == 0;
}

Action Monkey::NextStart() {
  if (day_.start) return chooser_.NextStart();
  const Action action = day_.actions.value(done_);
  if (action.verb != "start"_L1) return {u"start"_s, {u"0"_s}};
  ++done_;
  return action;
}

void Monkey::RunProgram() {
  const Action start = NextStart();
  Log(start);
  const int variant = start.Number(0);
  bench_ = std::make_unique<VirtualBench>(IsOverTcp(variant) ? LineKind::kTcp : LineKind::kSerial,
                                          kPanels);
  PrepareFolder(variant);
  {
    frmMain launcher(TaskWindows(bench_->Ports()));
    launcher.show();
    session_ = launcher.findChild<SessionEnd*>();
    watch_ = std::make_unique<Watch>(*bench_, bench_->Folder().Path(QString()),
                                     [this](const QString& what) { Fail(what); });
    goes_home_ = false;
    StepSoon();
    QApplication::exec();
    watch_.reset();
  }
  disk_.reset();
  bench_.reset();
}

void Monkey::PrepareFolder(int variant) {
  const TemporaryProgramFolder& folder = bench_->Folder();
  QByteArray ini = folder.Read(u"brivon.ini"_s);
  if (HasNoPanel(variant)) ini.remove(0, ini.indexOf("[Communication]"));
  if (IsGerman(variant)) {
    ini += "[Language]\r\nLanguage=2\r\n";
    QFile texts(u"" BRIVON_SAMPLES "/languages/deutsch/langSetting.INI"_s);
    if (!texts.open(QIODevice::ReadOnly)) qFatal("there is no sample of a language");
    folder.Write(u"langSetting.INI"_s, texts.readAll());
  }
  folder.Configure(ini);
  const QString page = folder.Write(u"page.msg"_s, SampleMessageFile(4, 96));
  const QString small = folder.Write(u"small.msg"_s, SampleMessageFile(2, 96));
  folder.Write(u"long.srl"_s,
               "*** Brivon Shift Message File ***\r\n<SA><CA>" + QByteArray(300, 'w') + "\r\n");
  const auto field = [](const QString& path) { return path.toLocal8Bit().leftJustified(100, ' '); };
  folder.Write(u"week.sch"_s,
               "*** Brivon Schedule File ***\r\nWeek =7\r\nHour =8\r\nMin =**\r\nRow =4\r\nCol =96"
               "\r\nNo of Sequence =2\r\n" +
                   field(page) + "\r\n5\r\nAppear              \r\n" + field(page) +
                   "\r\n9\r\nWipe Left           \r\n");
  folder.Write(u"notes.txt"_s, "No message.\r\n");
  folder.Write(u"broken.msg"_s, "*** Brivon Message File ***\r\nRow = 4\r\nCol = 96\r\n<L01>a\r\n");
  folder.Write(u"broken.sch"_s, "*** Brivon Schedule File ***\r\nWeek =7\r\n");
  QDir(folder.Path(QString())).mkdir(u"sub"_s);
}

void Monkey::StepSoon() {
  if (std::exchange(step_is_due_, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        step_is_due_ = false;
        Step();
      },
      Qt::QueuedConnection);
}

void Monkey::Step() {
  hang_.Beat();
  if (watch_ == nullptr) return;  // between two programs
  watch_->Look();
  if (goes_home_) {
    GoHome();
    return;
  }
  const auto action = NextAction();
  if (!action) {
    is_over_ = true;
    BeginWayHome();
    StepSoon();
    return;
  }
  Do(*action);
}

std::optional<Action> Monkey::NextAction() {
  if (day_.start) {
    if (done_ >= day_.steps) return std::nullopt;
    ++done_;
    return Front() == nullptr ? Action{u"pause"_s, {}} : chooser_.Next();
  }
  if (done_ >= day_.actions.size()) return std::nullopt;
  // A start within the program ends it first.
  if (day_.actions[done_].verb == "start"_L1) return Action{u"end"_s, {}};
  return day_.actions[done_++];
}

void Monkey::Do(const Action& action) {
  Log(action);
  if (--away_ < 0) ActivateFront();
  if (action.verb == "end"_L1) {
    watch_->Forgive();
    QCoreApplication::exit();
    return;
  }
  if (action.verb == "pause"_L1 && !IsSending()) {
    QTimer::singleShot(kPause, this, [this] { StepSoon(); });
    return;
  }
  StepSoon();  // first, as what is done may open a window and return when that is closed
  if (action.verb == "pause"_L1) return;
  if (action.verb == "home"_L1) {
    BeginWayHome();
  } else if (action.verb == "fault"_L1) {
    SetFault(action.Word(0));
  } else if (action.verb == "disk"_L1) {
    FillDisk(action.Number(0));
  } else if (action.verb == "logout"_L1) {
    LogOut(action.Word(0) == "ask"_L1, action.Word(1) == "end"_L1);
  } else if (action.verb == "quit"_L1) {
    Quit();
  } else if (!Perform(action, [this] { hang_.Beat(); })) {
    ++skipped_;
  } else if (action.verb == "elsewhere"_L1) {
    away_ = 3;
  }
}

void Monkey::SetFault(const QString& fault) {
  if (fault == "unplug"_L1) {
    bench_->Unplug();
  } else if (fault == "plug"_L1) {
    bench_->PlugIn();
  } else {
    VirtualPanel::Faults faults;
    QString error;
    if (fault == "none"_L1) bench_->PlugIn();
    if (fault != "none"_L1 && !VirtualPanel::ParseFault(fault, &faults, &error)) return;
    bench_->Fail(faults);
  }
}

void Monkey::FillDisk(int calls) {
  disk_.reset();
  if (calls == 0) return;
  DiskFault full;
  full.call = calls;
  full.error = ENOSPC;
  full.stays = true;
  full.spares_what_frees = true;
  const QByteArray folder = QFile::encodeName(bench_->Folder().Path(QString()));
  disk_ = std::make_unique<FaultyDisk>(folder.constData(), full);
}

void Monkey::LogOut(bool may_ask, bool ends) {
  if (std::exchange(is_logging_out_, true)) return;
  watch_->SessionIsToEnd(may_ask);
  const bool may_end = session_->MayEnd([may_ask] { return may_ask; });
  is_logging_out_ = false;
  watch_->SessionMayEnd(may_end);
  if (may_end && ends) Quit();
}

void Monkey::Quit() {
  QEvent quit(QEvent::Quit);
  QCoreApplication::sendEvent(qApp, &quit);
  if (quit.isAccepted()) watch_->ProgramEnds();
}

void Monkey::BeginWayHome() {
  goes_home_ = true;
  way_home_ = 0;
  sending_on_way_home_ = 0;
}

void Monkey::GoHome() {
  QWidget* front = Front();
  if (front == nullptr || front->objectName() == "frmMain"_L1) {
    goes_home_ = false;
    if (!is_over_) {
      StepSoon();
    } else {
      QCoreApplication::exit();
    }
    return;
  }
  const int step = way_home_++;
  if (IsSending()) ++sending_on_way_home_;
  if (sending_on_way_home_ > kLongestStop || step - sending_on_way_home_ > kLongestWayHome) {
    Fail(u"no way leads back from "_s + PathOf(front));
  }
  ActivateFront();
  StepSoon();
  auto* box = qobject_cast<QMessageBox*>(front);
  if (box != nullptr && box->button(QMessageBox::No) != nullptr) {
    box->button(QMessageBox::No)->click();
  } else if (box != nullptr && step % 3 == 2) {
    PressKeys(u"Return"_s);
  } else if (step % 3 == 1) {
    front->close();
  } else {
    PressKeys(u"Esc"_s);
  }
}

void Monkey::Log(const Action& action) {
  doing_ = LineOf(action);
  hang_.Tell(doing_);
  if (log_.isOpen()) log_.write(doing_ + '\n');
}

void Monkey::Fail(const QString& what) const {
  std::fprintf(stderr, "FAILED: %s\n  after action %lld: %s\n", what.toUtf8().constData(),
               static_cast<long long>(done_), doing_.constData());
  if (day_.start) {
    std::fprintf(stderr, "  start number %llu\n", static_cast<unsigned long long>(*day_.start));
  }
  std::fflush(nullptr);
  _exit(2);
}
