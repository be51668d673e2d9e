// What only Unix may have in place of the language file.
#include <sys/stat.h>

#include <QFile>

#include <gtest/gtest.h>

#include "language/module_language.h"
#include "support/program_folder.h"
#include "support/text.h"

namespace {

using ModuleLanguage::SetLanguageActive;
using ModuleLanguage::TranslateMessage;

// A reader would wait for ever at a pipe that nobody writes to.
TEST(ModuleLanguageOnUnix, APipeInPlaceOfTheFileIsNeverOpened) {
  const TemporaryProgramFolder folder;
  const QByteArray path = QFile::encodeName(folder.Path(Text("langSetting.INI")));
  ASSERT_EQ(mkfifo(path.constData(), 0600), 0);
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("Aborted!"));
  SetLanguageActive(true);
  EXPECT_EQ(TranslateMessage(Text("Aborted!")), Text("Aborted!"));
}

}  // namespace
