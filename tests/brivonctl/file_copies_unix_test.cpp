// A file that a user may not read.
#include <sys/stat.h>

#include <memory>

#include <QFile>

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "orders/file_copies.h"
#include "support/as_nobody.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

TEST(FileCopiesUnixTest, AFileThatMayNotBeReadIsThereAndNotReadable) {
  const TemporaryProgramFolder folder;
  const QString path = folder.Write(u"a.msg"_s, "*** Brivon Message File ***\r\nRow = 1\r\n");
  ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0), 0);
  ASSERT_EQ(::chmod(QFile::encodeName(folder.Path({})).constData(), 0755), 0);
  const auto copies = [&] {
    const AsNobody nobody;
    return std::make_unique<FileCopies>(path);
  }();
  EXPECT_TRUE(copies->Exists(path));
  EXPECT_EQ(Brivon1::MessageFileReader(path, *copies).Failure().fault,
            Brivon1::FileFault::kNotReadable);
  EXPECT_EQ(copies->ReadFailure(), QString());
}

}  // namespace
}  // namespace BrivonCtl
