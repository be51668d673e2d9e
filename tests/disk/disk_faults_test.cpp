// Every call that a save makes fails once, in every way that a disk knows: the old file or the new
// one is there, whole, and the window says which.
#include <cerrno>
#include <cstdio>
#include <optional>
#include <tuple>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "disk/faulty_disk.h"
#include "disk/saved_work.h"

using namespace Qt::StringLiterals;

namespace {

struct Error {
  int number;
  const char* reason;
  bool is_of_disk;
};

constexpr Error kErrors[] = {{ENOSPC, "No space left on device", true},
                             {EIO, "Input/output error", true},
                             {EDQUOT, "Disk quota exceeded", true},
                             {EACCES, "Permission denied", false}};

/// What a flush alone gives: the disk is elsewhere, and the line to it fails.
constexpr Error kFlushErrors[] = {{ETIMEDOUT, "Connection timed out", true},
                                  {ESTALE, "Stale file handle", true},
                                  {EFBIG, "File too large", true},
                                  {ENOTCONN, "Transport endpoint is not connected", true}};

/// What a flush gives that the disk, or the system for this user, does not have.
constexpr int kNoFlush[] = {EINVAL, ENOSYS, EOPNOTSUPP, EACCES, EPERM};

/// What the system may say where a file without a name is not to receive one.
constexpr int kNoName[] = {EACCES, EPERM, EXDEV, ENOENT, EOPNOTSUPP};

/// All ways with all errors, for a night.
bool IsLong() { return qEnvironmentVariable("BRIVON_DISK_FAULTS") == u"all"_s; }

std::optional<QByteArray> Read(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  return file.readAll();
}

class DiskFaults : public testing::TestWithParam<std::tuple<const FileKind*, bool>> {
 protected:
  void SetUp() override {
    if (IsNameless() && !work_.HasNamelessFiles()) GTEST_SKIP() << "every file here has a name";
  }

  void TearDown() override {
    if (saves_ == 0) return;
    std::printf("%s, %s: %d saves on a disk that fails\n", std::get<0>(GetParam())->name,
                IsNameless() ? "written without a name" : "written under a name", saves_);
  }

  bool IsNameless() const { return std::get<1>(GetParam()); }

  QStringList Names() const {
    return QDir(work_.Folder().Path({}))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  }

  /// The calls of a save of this way, by their names, on a disk that has no fault.
  QStringList Calls(WayToSave way) { return Try(way, {}, nullptr); }

  /// Saves a further version on a disk with a fault, looks at what there is, and saves it on one
  /// that has none.
  QStringList Try(WayToSave way, DiskFault fault, const Error* error);

  void EveryFaultOf(WayToSave way);
  void EveryShortWriteOf(WayToSave way, int call);

  int saves_ = 0;

 private:
  /// Whether a call has failed that a save needs; `at` receives the first such call's name.
  static bool MustFail(const DiskFault& fault, const Error* error, const QStringList& calls,
                       QString* at);
  void ExpectFailure(WayToSave way, const Error& error, const QString& at,
                     const MessageBoxReader& boxes) const;

  /// Looks that the window says what is true of a save to `path`, and that what was to follow it,
  /// `dialogs` of them, has.
  void ExpectWindow(WayToSave way, const QString& path, bool must_fail, int dialogs);

  void SaveAgain(WayToSave way, const QString& path);
  void ReturnFrom(const QString& path, QStringList* names);

  SavedWork work_{*std::get<0>(GetParam())};
  int version_ = 0;
};

bool DiskFaults::MustFail(const DiskFault& fault, const Error* error, const QStringList& calls,
                          QString* at) {
  if (fault.call == 0) return false;
  const bool is_short = fault.way != DiskFault::Way::kError;
  if (is_short && fault.cut == 0) {
    *at = u"write"_s;
    return true;
  }
  if (fault.way == DiskFault::Way::kShort) return false;
  const qsizetype first = fault.call - 1 + (is_short ? 1 : 0);
  for (qsizetype i = first; i < (fault.stays ? calls.size() : first + 1); ++i) {
    *at = calls.value(i);
    if (*at == u"open" || *at == u"write") return true;
    // A file that has a name from the beginning needs no link, and none twice.
    if (*at == u"linkat" && error->is_of_disk) return true;
    if (*at == u"rename" && error->number != ENOENT) return true;
    if (*at == u"fsync" && error->is_of_disk) return true;
  }
  return false;
}

void DiskFaults::ExpectFailure(WayToSave way, const Error& error, const QString& at,
                               const MessageBoxReader& boxes) const {
  const bool is_schedule_to_send = way == WayToSave::kSend && work_.Path().endsWith(u".sch");
  const char* disk = is_schedule_to_send ? "Drive Not Available!" : "Drive not available!";
  const char* path = is_schedule_to_send ? "Path Not Valid" : "Invalid path!";
  ASSERT_FALSE(boxes.Seen().isEmpty());
  EXPECT_EQ(boxes.Texts().last(), Text(error.is_of_disk || at == u"write" ? disk : path));
  const QString file = IsUnderOtherName(way) ? work_.OtherPath() : work_.Path();
  const QString remedy = boxes.Remedies().last();
  EXPECT_TRUE(remedy.startsWith(file + u": "_s + Text(error.reason) + u'\n'))
      << remedy.toStdString();
}

void DiskFaults::ExpectWindow(WayToSave way, const QString& path, bool must_fail, int dialogs) {
  const bool is_left = way == WayToSave::kExit || way == WayToSave::kCloseBox || !work_.IsEditor();
  const bool is_new_work =
      way == WayToSave::kNew && !std::get<0>(GetParam())->asks_for_size && !must_fail;
  EXPECT_EQ(work_.IsLeft(), is_left && !must_fail);
  EXPECT_EQ(dialogs, HasQuestion(way) && !is_left && !must_fail && !is_new_work ? 1 : 0);
  if (is_new_work) {
    EXPECT_TRUE(work_.ShownPath().endsWith(u"/NEW.SRL"));
    EXPECT_FALSE(work_.Asks());
    work_.OpenItsFile();
  } else if (work_.IsEditor()) {
    const bool is_page = work_.Path().endsWith(u".msg");
    EXPECT_EQ(work_.ShownPath().toStdString(), (must_fail ? work_.Path() : path).toStdString());
    EXPECT_EQ(work_.SaysNotSaved(), must_fail);
    EXPECT_EQ(work_.Asks(), must_fail || (is_page && HasQuestion(way)));
  }
}

void DiskFaults::SaveAgain(WayToSave way, const QString& path) {
  const MessageBoxReader boxes;
  work_.Save(IsUnderOtherName(way) ? way : WayToSave::kSave);
  EXPECT_EQ(boxes.Texts(), QStringList());
  EXPECT_FALSE(work_.SaysNotSaved());
  EXPECT_EQ(work_.ShownPath().toStdString(), path.toStdString());
}

void DiskFaults::ReturnFrom(const QString& path, QStringList* names) {
  work_.ReturnToItsFile();
  QFile::remove(path);
  names->removeOne(QFileInfo(path).fileName());
}

QStringList DiskFaults::Try(WayToSave way, DiskFault fault, const Error* error) {
  fault.error = error == nullptr ? 0 : error->number;
  fault.has_nameless_files = IsNameless();
  const QString path = IsUnderOtherName(way) ? work_.OtherPath() : work_.Path();
  if (way == WayToSave::kSaveAs)
    work_.Folder().Write(u'x' + QFileInfo(work_.Path()).fileName(), "y");
  const QStringList names_before = Names();
  const std::optional<QByteArray> old = Read(path);
  work_.Edit(++version_);
  const QByteArray content = work_.Content(version_);
  QStringList calls;
  MessageBoxReader boxes;
  if (HasQuestion(way)) boxes.Answer(QMessageBox::Yes);
  int dialogs = 0;
  {
    const FaultyDisk disk(QFile::encodeName(work_.Folder().Path({})).constData(), fault);
    dialogs = work_.Save(way);
    for (int call = 1; call <= disk.Calls(); ++call) calls.append(Text(disk.Name(call)));
  }
  if (fault.call != 0) ++saves_;
  EXPECT_GE(calls.size(), fault.call);

  const auto now = Read(path);
  QString at;
  const bool must_fail = MustFail(fault, error, calls, &at);
  EXPECT_TRUE(must_fail ? now == old : now == content)
      << "what stands there has " << (now ? now->toStdString() : "no file");
  EXPECT_EQ(boxes.Seen().size(), (HasQuestion(way) ? 1 : 0) + (must_fail ? 1 : 0));
  if (must_fail) ExpectFailure(way, *error, at, boxes);
  ExpectWindow(way, path, must_fail, dialogs);
  QStringList names = names_before;
  if (!must_fail && !names.contains(QFileInfo(path).fileName())) {
    names.append(QFileInfo(path).fileName());
    names.sort();
  }
  // A disk that refuses everything refuses to remove a file, too.
  if (!fault.stays) {
    EXPECT_EQ(Names().join(u' ').toStdString(), names.join(u' ').toStdString());
  }

  work_.AgeLeftOvers();
  if (must_fail || work_.IsEditor()) SaveAgain(way, path);
  EXPECT_TRUE(Read(path) == content);
  if (IsUnderOtherName(way)) ReturnFrom(path, &names);
  EXPECT_EQ(Names().join(u' ').toStdString(), names.join(u' ').toStdString());
  return calls;
}

void DiskFaults::EveryFaultOf(WayToSave way) {
  const QStringList calls = Calls(way);
  ASSERT_FALSE(calls.isEmpty());
  for (int call = 1; call <= calls.size() && !HasFailure(); ++call) {
    for (std::size_t i = 0; i < std::size(kErrors); ++i) {
      // The usual way meets all of them every time.
      const auto turn = static_cast<std::size_t>(call) + static_cast<std::size_t>(way);
      if (!IsLong() && way != WayToSave::kSave && turn % std::size(kErrors) != i) continue;
      for (const bool stays : {false, true}) {
        if (!IsLong() && stays != ((turn + i) % 2 == 0)) continue;
        SCOPED_TRACE(testing::Message()
                     << NameOf(way) << ", call " << call << " (" << calls[call - 1].toStdString()
                     << "): " << kErrors[i].reason << (stays ? ", from then on" : ""));
        Try(way, {.call = call, .stays = stays}, &kErrors[i]);
      }
    }
    if (calls[call - 1] == u"write") EveryShortWriteOf(way, call);
  }
}

void DiskFaults::EveryShortWriteOf(WayToSave way, int call) {
  const auto size = static_cast<int>(work_.Content(version_).size());
  for (const Error& error : kErrors) {
    SCOPED_TRACE(testing::Message() << NameOf(way) << ", half a write, " << error.reason);
    Try(way, {.call = call, .way = DiskFault::Way::kShort}, &error);
    Try(way, {.call = call, .way = DiskFault::Way::kShortThenError}, &error);
  }
  for (int cut = 0; cut <= size && !HasFailure(); ++cut) {
    const bool is_edge = cut <= 1 || cut == size - 1;
    if (!IsLong() && (way != WayToSave::kSave || !is_edge)) continue;
    // A disk that takes nothing has no room.
    const Error& error = kErrors[cut % static_cast<int>(std::size(kErrors))];
    SCOPED_TRACE(testing::Message()
                 << NameOf(way) << ", a write cut at byte " << cut << ", " << error.reason);
    Try(way, {.call = call, .way = DiskFault::Way::kShort, .cut = cut}, &error);
    if (cut == 0) continue;
    Try(way, {.call = call, .way = DiskFault::Way::kShortThenError, .cut = cut}, &error);
  }
}

TEST_P(DiskFaults, LeaveTheOldFileOrTheNewOneWholeAndTheWindowSaysWhich) {
  for (const WayToSave way : kWaysToSave) {
    if (way != WayToSave::kSave && std::get<0>(GetParam())->label == nullptr) break;
    EveryFaultOf(way);
  }
}

TEST_P(DiskFaults, OfAFlushAreFailuresUnlessTheDiskHasNone) {
  const int call = static_cast<int>(Calls(WayToSave::kSave).indexOf(u"fsync"_s)) + 1;
  ASSERT_GT(call, 0);
  for (const Error& error : kFlushErrors) {
    SCOPED_TRACE(error.reason);
    Try(WayToSave::kSave, {.call = call}, &error);
  }
  for (const int number : kNoFlush) {
    SCOPED_TRACE(number);
    const Error error{number, "", false};
    Try(WayToSave::kSave, {.call = call}, &error);
  }
}

TEST_P(DiskFaults, OfALinkOrARenameThatANameFromTheBeginningAvoidsAreNone) {
  const QStringList calls = Calls(WayToSave::kSave);
  for (int call = 1; call <= calls.size(); ++call) {
    SCOPED_TRACE(testing::Message() << call << ", " << calls[call - 1].toStdString());
    if (calls[call - 1] == u"linkat") {
      for (const int number : kNoName) {
        SCOPED_TRACE(number);
        const Error error{number, "", false};
        Try(WayToSave::kSave, {.call = call}, &error);
      }
    } else if (calls[call - 1] == u"rename") {
      const Error gone{ENOENT, "No such file or directory", false};
      Try(WayToSave::kSave, {.call = call}, &gone);
      Try(WayToSave::kSave, {.call = call, .stays = true}, &gone);
    }
  }
}

TEST_P(DiskFaults, MeetEveryCallOfASave) {
  const QString nameless = u"open flock write fchown fchmod fsync linkat linkat rename close"_s;
  const QString named = u"open flock write fchown fchmod fsync rename close"_s;
  EXPECT_EQ(Calls(WayToSave::kSave).join(u' ').toStdString(),
            (IsNameless() ? nameless : named).toStdString());
  if (std::get<0>(GetParam())->label == nullptr) return;
  const QString new_file = u"open flock write fsync "_s;
  EXPECT_EQ(Calls(WayToSave::kSaveAsNewFile).join(u' ').toStdString(),
            (new_file + (IsNameless() ? u"linkat close"_s : u"rename close"_s)).toStdString());
}

INSTANTIATE_TEST_SUITE_P(All, DiskFaults,
                         testing::Combine(testing::Values(&kFileKinds[0], &kFileKinds[1],
                                                          &kFileKinds[2], &kFileKinds[3]),
                                          testing::Bool()),
                         [](const auto& test) {
                           return std::string(std::get<0>(test.param)->name) +
                                  (std::get<1>(test.param) ? "Nameless" : "Named");
                         });

}  // namespace
