// A long day at the windows: does one action after another at the running program, keeps them in a
// log, and looks in between whether all is as it must be.
#pragma once

#include <memory>
#include <optional>

#include <QFile>
#include <QList>
#include <QObject>

#include "app/frmMain.h"
#include "app/session_end.h"
#include "disk/faulty_disk.h"
#include "monkey/action.h"
#include "monkey/chooser.h"
#include "monkey/hang_watch.h"
#include "monkey/watch.h"
#include "support/panel_bench.h"

struct Day {
  std::optional<quint64> start;  ///< Chooses the actions; without it, `actions` are done.
  int steps = 0;                 ///< How many are chosen.
  QList<Action> actions;
  QString log;      ///< Where what is done is kept; empty: nowhere.
  int hang_ms = 0;  ///< The longest work at one event.
};

class Monkey : public QObject {
 public:
  explicit Monkey(Day day);
  ~Monkey() override;

  /// Starts the program, again and again, until the day is over. Of a failure nothing returns: it
  /// is told, and the program ends with 2. False: too many actions had nothing to act at, so that
  /// the day has tried less than it seems.
  bool Live();

 private:
  void RunProgram();
  void PrepareFolder(int variant);
  Action NextStart();

  /// Lets Step() be called by the event loop, whichever runs then.
  void StepSoon();
  void Step();
  std::optional<Action> NextAction();
  void Do(const Action& action);
  void SetFault(const QString& fault);

  /// The disk has room for `calls` - 1 more calls of saves, and then for none; 0: for all again.
  void FillDisk(int calls);

  /// The desktop asks whether its session may end, and may let the program ask its user; where the
  /// session may, it ends at once.
  void LogOut(bool may_ask, bool ends);

  /// The desktop tells the program to end.
  void Quit();

  void BeginWayHome();

  /// One step of the way back to the launcher, which must be short.
  void GoHome();

  void Log(const Action& action);
  [[noreturn]] void Fail(const QString& what) const;

  Day day_;
  QFile log_;
  Chooser chooser_;
  HangWatch hang_;
  std::unique_ptr<VirtualBench> bench_;
  std::unique_ptr<FaultyDisk> disk_;
  std::unique_ptr<Watch> watch_;
  SessionEnd* session_ = nullptr;
  bool is_logging_out_ = false;  // and waits for the program's answer
  QByteArray doing_;
  qsizetype done_ = 0;  // of the actions
  qsizetype skipped_ = 0;
  bool step_is_due_ = false;
  bool goes_home_ = false;
  bool is_over_ = false;
  int way_home_ = 0;             // steps
  int sending_on_way_home_ = 0;  // of them
  int away_ = 0;                 // steps for which another window has the keyboard
};
