#include "usage/program_folder.h"

#include <QFileInfo>

#include "base/code_page.h"
#include "language/module_language.h"
#include "store/configuration_store.h"
#include "store/ini_file.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {

CLI::Validator NotEmpty(const std::string& what) {
  const auto check = [=](const std::string& word) {
    return word.empty() ? "the name is empty; name " + what : std::string();
  };
  return {check, ""};
}

void AddFolderOption(CLI::App* command, FolderOption* option) {
  command
      ->add_option("--folder", option->folder,
                   "The program folder, which holds brivon.ini; that of Brivon unless told "
                   "otherwise: the executable's where it holds one or may be written to, else " +
                       OperatorsFolder())
      ->type_name("DIR")
      ->check(NotEmpty("the folder that holds brivon.ini"));
}

QString UseFolder(const FolderOption& option, bool needs_configuration) {
  constexpr int kEnglish = 1;
  constexpr int kLanguageFile = 2;
  if (!option.folder.empty()) {
    const QFileInfo folder(TextOf(option.folder));
    if (!folder.isDir()) {
      return u"--folder: %1 is no folder; it must be the one that holds brivon.ini"_s.arg(
          folder.filePath());
    }
    Brivon1::SetProgramFolder(folder.absoluteFilePath());
  }
  const QString path = Brivon1::ConfigurationPath();
  const auto file = Brivon1::IniFile::Read(path);
  if (!file) return u"%1 cannot be read; it must be an ordinary file that you may read"_s.arg(path);
  if (needs_configuration && !QFileInfo::exists(path)) {
    return u"%1 does not exist; name the folder that holds it with --folder"_s.arg(path);
  }
  Brivon1::LoadConfiguration();
  Brivon1::CodePage::SetSystem(Brivon1::Store().code_page);
  const int language = file->Integer("Language", "Language", kEnglish);
  ModuleLanguage::SetLanguageActive(language == kLanguageFile);
  return {};
}

}  // namespace BrivonCtl
