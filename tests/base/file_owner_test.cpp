// Whose a file is after a save, and who may do what with it.
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vector>

#include <QScopeGuard>

#include "base/files.h"
#include "base/folder_of_files.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class FileOwner : public FolderOfFiles {};

struct stat StatusOf(const QString& path) {
  struct stat status {};
  EXPECT_EQ(stat(QFile::encodeName(path).constData(), &status), 0);
  return status;
}

mode_t PermissionsOf(const QString& path) { return StatusOf(path).st_mode & 07777; }

TEST_F(FileOwner, ASaveKeepsTheFilesPermissions) {
  for (const mode_t mode : {0600U, 0640U, 0644U, 0664U, 0666U, 0755U, 0444U, 0460U}) {
    const QString file = Write("a.msg", "old");
    ASSERT_EQ(chmod(QFile::encodeName(file).constData(), mode), 0);
    ASSERT_EQ(SaveWholeFile(file, "new"), SaveResult::kSaved);
    EXPECT_EQ(PermissionsOf(file), mode);
  }
}

TEST_F(FileOwner, ANewFileHasThePermissionsThatTheSystemGivesANewFile) {
  const mode_t old_mask = umask(0027);
  const auto restore = qScopeGuard([old_mask] { umask(old_mask); });
  ASSERT_EQ(SaveWholeFile(Path("new.msg"), "x"), SaveResult::kSaved);
  EXPECT_EQ(PermissionsOf(Path("new.msg")), mode_t{0640});
}

void GiveTo(uid_t owner, gid_t group, mode_t mode, const QString& path) {
  const QByteArray name = QFile::encodeName(path);
  ASSERT_EQ(chown(name.constData(), owner, group), 0);
  ASSERT_EQ(chmod(name.constData(), mode), 0);
}

constexpr uid_t kOwner = 4711;
constexpr gid_t kGroup = 4712;

TEST_F(FileOwner, TheSuperusersSaveKeepsTheFilesOwnerGroupAndMode) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser may save to everybody's files";
  for (const mode_t mode : {0640U, 0600U, 0444U, 02664U}) {
    const QString file = Write("a.msg", "old");
    GiveTo(kOwner, kGroup, mode, file);
    ASSERT_EQ(SaveWholeFile(file, "new"), SaveResult::kSaved);
    EXPECT_EQ(Read(file), "new");
    EXPECT_EQ(StatusOf(file).st_uid, kOwner);
    EXPECT_EQ(StatusOf(file).st_gid, kGroup);
    EXPECT_EQ(PermissionsOf(file), mode);
  }
}

TEST_F(FileOwner, TheSuperusersSaveThroughALinkKeepsTheOwnerOfItsTarget) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser may save to everybody's files";
  const QString target = Write("target.msg", "old");
  GiveTo(kOwner, kGroup, 0600, target);
  ASSERT_TRUE(QFile::link(target, Path("link.msg")));
  ASSERT_EQ(SaveWholeFile(Path("link.msg"), "new"), SaveResult::kSaved);
  EXPECT_EQ(Read(target), "new");
  EXPECT_EQ(StatusOf(target).st_uid, kOwner);
}

/// While it lives, this process is a plain user, who is a member of one group besides their own.
class PlainUser {
 public:
  static constexpr uid_t kId = 4720;
  static constexpr gid_t kOwnGroup = 4721;

  explicit PlainUser(gid_t member_of) : groups_(static_cast<std::size_t>(getgroups(0, nullptr))) {
    getgroups(static_cast<int>(groups_.size()), groups_.data());
    is_taken_on_ = setgroups(1, &member_of) == 0 && setegid(kOwnGroup) == 0 && seteuid(kId) == 0;
  }
  ~PlainUser() {
    const bool is_given_up =
        seteuid(0) == 0 && setegid(0) == 0 && setgroups(groups_.size(), groups_.data()) == 0;
    EXPECT_TRUE(is_taken_on_ && is_given_up);
  }
  PlainUser(const PlainUser&) = delete;
  PlainUser& operator=(const PlainUser&) = delete;

 private:
  std::vector<gid_t> groups_;
  bool is_taken_on_;
};

TEST_F(FileOwner, ASaveToSomebodyElsesFileKeepsItsGroupWhereTheUserIsAMember) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser may become somebody else";
  ASSERT_EQ(chmod(QFile::encodeName(folder_.path()).constData(), 0777), 0);
  const QString file = Write("a.msg", "old");
  const auto save_as_member_of = [&](gid_t group) {
    GiveTo(kOwner, kGroup, 0664, file);
    const PlainUser user(group);
    return SaveWholeFile(file, "new");
  };
  EXPECT_EQ(save_as_member_of(kGroup), SaveResult::kSaved);
  EXPECT_EQ(StatusOf(file).st_uid, PlainUser::kId);
  EXPECT_EQ(StatusOf(file).st_gid, kGroup);
  EXPECT_EQ(PermissionsOf(file), mode_t{0664});
  EXPECT_EQ(save_as_member_of(kGroup + 1), SaveResult::kSaved);
  EXPECT_EQ(StatusOf(file).st_uid, PlainUser::kId);
  EXPECT_EQ(StatusOf(file).st_gid, PlainUser::kOwnGroup);
  EXPECT_EQ(PermissionsOf(file), mode_t{0644}) << "what one group may do is nothing to another";
  EXPECT_EQ(Read(file), "new");
  EXPECT_EQ(Names(), QStringList{u"a.msg"_s});
}

TEST_F(FileOwner, AHardLinkToAReplacedFileStaysWithItsOldContent) {
  const QString file = Write("a.msg", "old");
  ASSERT_EQ(link(QFile::encodeName(file).constData(), QFile::encodeName(Path("b.msg")).constData()),
            0);
  ASSERT_EQ(SaveWholeFile(file, "new"), SaveResult::kSaved);
  EXPECT_EQ(Read(file), "new");
  EXPECT_EQ(Read(Path("b.msg")), "old");
}

}  // namespace
}  // namespace Brivon1
