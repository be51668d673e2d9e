#include "app/module_language.h"

#include <array>

#include <QStringDecoder>

#include "core/code_page.h"
#include "core/configuration_store.h"

namespace ModuleLanguage {
namespace {

constexpr qsizetype kLongestValue = 255;
constexpr int kFeatureEntries = 10;

bool language_active = false;

struct MessageRow {
  const char* section;
  const char* key;
  const char* text;
};

// The order counts: the first row with the text decides.
constexpr std::array kMessages = {
    MessageRow{"Message", "msgPath", "Invalid path!"},
    MessageRow{"Message", "msgDrive", "Drive not available!"},
    MessageRow{"Message", "msgSave", "File not saved. Save it now?"},
    MessageRow{"Message", "msgNotFound", "File not found"},
    MessageRow{"Message", "msgErrOpen", "Error in opening file"},
    MessageRow{"Message", "msgSendCmd", "Send Command"},
    MessageRow{"Message", "msgSendCmdOK", "Command is sent successfully!"},
    MessageRow{"Message", "msgErrPoll", "Polling error!"},
    MessageRow{"Message", "msgClkOK", "Set clock is done!"},
    MessageRow{"Message", "msgClk", "Set clock"},
    MessageRow{"Message", "msgDP", "Delete page"},
    MessageRow{"Message", "msgPage", "Page"},
    MessageRow{"Message", "msgDPOK", "is deleted."},
    MessageRow{"Message", "msgDAP", "Delete all message"},
    MessageRow{"Message", "msgDAPOK", "All pages are deleted!"},
    MessageRow{"Message", "msgRun", "Run page"},
    MessageRow{"Message", "msgRunOK", "is running."},
    MessageRow{"Message", "msgInput", "Invalid input!"},
    MessageRow{"Message", "msgFormat", "Invalid file fomat!"},
    MessageRow{"Message", "msgLine", "Invalid line number!"},
    MessageRow{"Message", "msgDim", "Dimension not matched!"},
    MessageRow{"Message", "msgExceed", "Cannot exceed 26 message files!"},
    MessageRow{"Message", "msgFull", "Schedule is full!"},
    MessageRow{"Message", "msgEmptyFile", "Empty schedule file!"},
    MessageRow{"Message", "msgEmptySch", "Empty schedule is not allowed!"},
    MessageRow{"Message", "msgSendMsg", "Send Message"},
    MessageRow{"Message", "msgSendMsgOK", "Message is sent successfully"},
    MessageRow{"Message", "msgSendSch", "Send Schedule"},
    MessageRow{"Message", "msgSendSchOK", "Schedule file download done!"},
    MessageRow{"Message", "msgErrSend", "Error in sending"},
    MessageRow{"Message", "msgErrSendSch", "Fail to download schedule file!"},
    MessageRow{"Message", "msgConfig", "Please configure your system before startup!"},
    MessageRow{"Message", "msgInvalidID", "Invalid ID!"},
    MessageRow{"Message", "msgEmptyID", "Empty ID number"},
    MessageRow{"Message", "msgErrID", "ID error"},
    MessageRow{"Message", "msgErrIP", "IP address error"},
    MessageRow{"Message", "msgSend232", "Send by RS232 link?"},
    MessageRow{"Message", "msgErrTx", "Transmission error!"},
    MessageRow{"Message", "msgTxFail", "Transmission failure!"},
    MessageRow{"Message", "msgTxOK", "Transmission finished!"},
    MessageRow{"Message", "msgErrComm", "Fail to initialize communication port!"},
    MessageRow{"Message", "msgErrTCP", "Cannot create TCP link!"},
    MessageRow{"Message", "msgErrConn", "No response from display panel. Please check connection."},
    MessageRow{"Message", "msgCancel", "Aborted!"},
    MessageRow{"Message", "msgBrowse", "Browse"},
    MessageRow{"Message", "msgSchF", "Schedule File"},
    MessageRow{"Message", "msgSchMsg", "Schedule Message"},
    MessageRow{"frmMain", "butCommand.Caption", "Command"},
    MessageRow{"frmSchedule", "frmSchedule.butOpen", "Open"},
    MessageRow{"frmMsgEditor", "frmMsgEditor.butOpen", "Open Message"},
    MessageRow{"frmSchedule", "DialogTitleAddMsg", "Add Message"},
    MessageRow{"frmSchedule", "TableTag1", "Message File"},
    MessageRow{"frmMsgEditor", "DialogTitleSaveAs", "Save As"},
};

}  // namespace

bool IsLanguageActive() { return language_active; }

void SetLanguageActive(bool active) { language_active = active; }

LanguageFile::LanguageFile()
    : file_(Brivon1::IniFile::Load(Brivon1::InProgramFolder(QStringLiteral("langSetting.INI")))) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString all = decoder(file_.Content());
  is_utf8_ = !decoder.hasError() && !all.contains(QChar::Null);
}

QString LanguageFile::Value(const QString& section, const QString& key,
                            const QString& missing) const {
  const auto value = file_.Value(section.toUtf8(), key.toUtf8());
  if (!value) return missing.left(kLongestValue);
  const QString text =
      is_utf8_ ? QString::fromUtf8(*value) : Brivon1::CodePage::System().ToText(*value);
  return text.left(kLongestValue);
}

QString ReadLangString(const QString& section, const QString& key, const QString& missing) {
  return LanguageFile().Value(section, key, missing);
}

QString TranslateMessage(const QString& text) {
  if (!language_active) return text;
  for (const MessageRow& row : kMessages) {
    if (text == QLatin1String(row.text)) {
      return ReadLangString(QString::fromLatin1(row.section), QString::fromLatin1(row.key), text);
    }
  }
  return text;
}

QChar FeatureCodeFromName(const QString& name) {
  const LanguageFile file;
  for (int n = 0; n < kFeatureEntries; ++n) {
    const QString key = QStringLiteral("ListFeature.List(%1)").arg(n);
    const QString entry = file.Value(QStringLiteral("frmDelay"), key, QString());
    if (!entry.isEmpty() && entry == name) return QChar(u'A' + n);
  }
  return {};
}

}  // namespace ModuleLanguage
