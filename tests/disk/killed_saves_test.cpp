// A program that is killed while it saves: at each call of the save, and at random moments. The old
// file or the new one is there, whole, and the next save removes what was left beside it.
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <new>
#include <random>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include "disk/faulty_disk.h"
#include "disk/saved_work.h"

using namespace Qt::StringLiterals;

namespace {

using Way = DiskFault::Way;

constexpr int kSavesOfOne = 9;  // and then it waits to be killed

int Setting(const char* name, int otherwise) {
  return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
}

/// How far a program that saves has come, as whoever kills it sees.
struct Progress {
  std::atomic<int> begun = 0;
  std::atomic<int> done = 0;
};

class KilledSaves : public testing::TestWithParam<const FileKind*> {
 protected:
  KilledSaves() {
    const QString file = QFileInfo(work_.Path()).fileName();
    for (const QString& name :
         {file + u".backup"_s, file + u".~1~"_s, file + u".~12345~"_s, file + u".QxAdYz"_s,
          u"x"_s + file + u".~brivon-QxAdPk~"_s, file + u".~brivon-QxAdPk~.old"_s,
          file + u".~QxAd~"_s, file + u".~HEAD~"_s, file + u".~main~"_s, file + u".~Copy~"_s}) {
      work_.Folder().Write(name, "an operator's own");
    }
    names_ = Names();
    void* memory =
        mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    progress_ = new (memory) Progress;
  }

  ~KilledSaves() override { munmap(progress_, sizeof(Progress)); }

  QStringList Names() const {
    return QDir(work_.Folder().Path({}))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  }

  QByteArray File() const {
    QFile file(work_.Path());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }

  /// Starts a program that is as this one and does `work` on a disk with `fault`.
  template <typename Work>
  pid_t Start(const DiskFault& fault, Work work) {
    const pid_t program = fork();
    if (program == 0) {
      const FaultyDisk disk(QFile::encodeName(work_.Folder().Path({})).constData(), fault);
      work();
      _exit(0);
    }
    return program;
  }

  /// Whether it was killed, and did not end by itself.
  static bool WasKilled(pid_t program) {
    int status = 0;
    EXPECT_EQ(waitpid(program, &status, 0), program);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

  /// What a killed program has left beside the file and its lock.
  int LeftOvers() const {
    return static_cast<int>(Names().size() - names_.size()) - (HasLock() ? 1 : 0);
  }

  bool HasLock() const { return QFileInfo::exists(LockPath()); }
  QString LockPath() const { return work_.Path() + u".lock"_s; }

  /// Saves a version with nobody to kill it, and looks that nothing but the operator's own files is
  /// beside it then.
  void SaveNext(int version) {
    const MessageBoxReader boxes;
    work_.AgeLeftOvers();
    work_.Edit(version);
    QElapsedTimer clock;
    clock.start();
    work_.Save(WayToSave::kSave);
    duration_ = clock.nsecsElapsed();
    EXPECT_EQ(boxes.Texts(), QStringList());
    EXPECT_EQ(File().toStdString(), work_.Content(version).toStdString());
    EXPECT_EQ(Names().join(u' ').toStdString(), names_.join(u' ').toStdString());
    for (const QString& name : names_) {
      if (name.contains(u".~") || name.endsWith(u".backup")) {
        EXPECT_EQ(work_.Folder().Read(name), "an operator's own") << name.toStdString();
      }
    }
  }

  QStringList CallsOfASave(int version, bool is_nameless) {
    work_.Edit(version);
    const FaultyDisk disk(QFile::encodeName(work_.Folder().Path({})).constData(),
                          {.has_nameless_files = is_nameless});
    work_.Save(WayToSave::kSave);
    QStringList calls;
    for (int call = 1; call <= disk.Calls(); ++call) calls.append(Text(disk.Name(call)));
    return calls;
  }

  void KillAtEachCall(bool is_nameless);

  SavedWork work_{*GetParam()};
  QStringList names_;
  Progress* progress_;
  int version_ = 0;
  qint64 duration_ = 0;  // of the last save, in nanoseconds
  int kills_ = 0;
};

void KilledSaves::KillAtEachCall(bool is_nameless) {
  const QStringList calls = CallsOfASave(++version_, is_nameless);
  const auto named =
      static_cast<int>(is_nameless ? calls.lastIndexOf(u"linkat"_s) : calls.indexOf(u"open"_s)) + 1;
  const auto renamed = static_cast<int>(calls.indexOf(u"rename"_s)) + 1;
  const auto written = static_cast<int>(calls.indexOf(u"write"_s)) + 1;
  ASSERT_GT(named, 0);
  ASSERT_GT(renamed, named);
  ASSERT_GT(written, 0);
  const auto kill_at = [&](int call, Way way) {
    SCOPED_TRACE(testing::Message()
                 << "call " << call << ", " << calls.value(call - 1).toStdString());
    const QByteArray old = File();
    work_.Edit(++version_);
    const DiskFault fault{.call = call, .way = way, .has_nameless_files = is_nameless};
    const bool was_killed = WasKilled(Start(fault, [this] { work_.Save(WayToSave::kSave); }));
    const bool is_renamed = way == Way::kKill && call > renamed;
    const bool is_named = way == Way::kKill ? call > named : !is_nameless;
    EXPECT_EQ(was_killed, call <= calls.size());
    EXPECT_EQ(File().toStdString(), (is_renamed ? work_.Content(version_) : old).toStdString());
    EXPECT_EQ(LeftOvers(), is_named && !is_renamed ? 1 : 0);
    EXPECT_EQ(HasLock(), was_killed && !work_.IsEditor());
    SaveNext(version_);
    if (was_killed) ++kills_;
  };
  // The last one is behind the end, where nothing is left to kill.
  for (int call = 1; call <= calls.size() + 1; ++call) kill_at(call, Way::kKill);
  kill_at(written, Way::kShortThenKill);
}

TEST_P(KilledSaves, AtEachCallLeaveTheOldFileOrTheNewOneAndTheNextSaveClearsUp) {
  if (work_.HasNamelessFiles()) KillAtEachCall(true);
  KillAtEachCall(false);
  std::printf("%s: killed at %d calls\n", GetParam()->name, kills_);
}

/// Of the kind of file that has a lock.
class KilledSavesWithLock : public KilledSaves {};

TEST_P(KilledSavesWithLock, AreTakenOverByTheNextSave) {
  const DiskFault none{.is_lock = true};
  work_.Edit(++version_);
  QStringList calls;
  {
    const FaultyDisk disk(QFile::encodeName(work_.Folder().Path({})).constData(), none);
    work_.Save(WayToSave::kSave);
    for (int call = 1; call <= disk.Calls(); ++call) calls.append(Text(disk.Name(call)));
  }
  // The file is saved before its lock is closed.
  const qsizetype closed = calls.indexOf(u"close"_s) + 1;
  ASSERT_GT(closed, 1);
  EXPECT_TRUE(calls.first() == u"open"_s && calls.contains(u"flock"_s));
  EXPECT_EQ(calls.last(), u"unlink"_s);
  for (int call = 1; call <= calls.size(); ++call) {
    SCOPED_TRACE(testing::Message() << "call " << call << ", " << calls[call - 1].toStdString());
    const QByteArray old = File();
    work_.Edit(++version_);
    const DiskFault fault{.call = call, .way = Way::kKill, .is_lock = true};
    EXPECT_TRUE(WasKilled(Start(fault, [this] { work_.Save(WayToSave::kSave); })));
    EXPECT_EQ(File().toStdString(), (call >= closed ? work_.Content(version_) : old).toStdString());
    EXPECT_EQ(LeftOvers(), 0);
    EXPECT_EQ(HasLock(), call > 1);
    SaveNext(version_);
  }
}

TEST_P(KilledSavesWithLock, AreTakenOverByTheNextSaveAlsoWhereTheTakeoverWasKilled) {
  const auto leave_a_lock = [this] {
    work_.Edit(++version_);
    const DiskFault fault{.call = 1, .way = Way::kKill};
    EXPECT_TRUE(WasKilled(Start(fault, [this] { work_.Save(WayToSave::kSave); })));
    EXPECT_TRUE(HasLock());
  };
  int left = 0;
  bool was_killed = true;
  for (int call = 1; was_killed; ++call) {
    SCOPED_TRACE(testing::Message() << "call " << call);
    leave_a_lock();
    const DiskFault fault{.call = call, .way = Way::kKill, .is_lock = true};
    was_killed = WasKilled(Start(fault, [this] { work_.Save(WayToSave::kSave); }));
    if (QFileInfo::exists(LockPath() + u".rmlock"_s)) ++left;
    SaveNext(++version_);
  }
  EXPECT_GT(left, 0);
}

TEST_P(KilledSaves, AtRandomMomentsLeaveTheOldFileOrTheNewOneAndTheNextSaveClearsUp) {
  const int kills = Setting("BRIVON_KILLS", 50);
  const int start = Setting("BRIVON_START", 1);
  SCOPED_TRACE(testing::Message() << "start " << start);
  std::mt19937 random(static_cast<unsigned>(start));
  int in_a_save = 0;
  int left_over = 0;
  SaveNext(++version_);
  for (int kill_number = 1; kill_number <= kills && !HasFailure(); ++kill_number) {
    SCOPED_TRACE(testing::Message() << "kill " << kill_number);
    const int first = version_;
    progress_->begun = progress_->done = first;
    const DiskFault none{.has_nameless_files = kill_number % 2 == 0};
    const pid_t program = Start(none, [&] {
      for (int version = first + 1; version <= first + kSavesOfOne; ++version) {
        work_.Edit(version);
        progress_->begun = version;
        work_.Save(WayToSave::kSave);
        progress_->done = version;
      }
      pause();
    });
    const int victim = first + 1 + static_cast<int>(random() % 3);
    std::uniform_int_distribution<qint64> moments(0, duration_ + duration_ / 2);
    const qint64 moment = moments(random);
    while (progress_->begun < victim) {
      ASSERT_EQ(waitpid(program, nullptr, WNOHANG), 0) << "it has ended by itself";
      usleep(20);
    }
    QElapsedTimer clock;
    for (clock.start(); clock.nsecsElapsed() < moment && progress_->done < victim;) continue;
    kill(program, SIGKILL);
    EXPECT_TRUE(WasKilled(program));

    const int begun = progress_->begun;
    const int done = progress_->done;
    const QByteArray file = File();
    EXPECT_TRUE(file == work_.Content(begun) || file == work_.Content(done)) << file.toStdString();
    if (begun != done) ++in_a_save;
    left_over += LeftOvers();
    EXPECT_LE(LeftOvers(), begun == done ? 0 : 1);
    version_ = first + kSavesOfOne + 1;
    SaveNext(version_);
  }
  std::printf(
      "%s: %d kills, %d of them in a save; %d left-over files found and removed (start %d)\n",
      GetParam()->name, kills, in_a_save, left_over, start);
  EXPECT_TRUE(HasFailure() || in_a_save > kills / 10) << "the moments are not those of saves";
}

INSTANTIATE_TEST_SUITE_P(All, KilledSavesWithLock, testing::Values(&kFileKinds[3]),
                         [](const auto& test) { return std::string(test.param->name); });

INSTANTIATE_TEST_SUITE_P(All, KilledSaves,
                         testing::Values(&kFileKinds[0], &kFileKinds[1], &kFileKinds[2],
                                         &kFileKinds[3]),
                         [](const auto& test) { return std::string(test.param->name); });

}  // namespace
