#include <QFile>
#include <QTemporaryDir>
#include <qt_windows.h>

#include <gtest/gtest.h>

#include "store/writable_folder.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

TEST(WritableFolder, AFolderOfOnesOwnIsOne) {
  const QTemporaryDir folder;
  EXPECT_TRUE(IsWritableFolder(folder.path()));
}

TEST(WritableFolder, WhatIsNotThereIsNone) {
  const QTemporaryDir folder;
  EXPECT_FALSE(IsWritableFolder(folder.filePath(u"nowhere"_s)));
}

}  // namespace
}  // namespace Brivon1
