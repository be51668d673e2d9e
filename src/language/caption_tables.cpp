#include "language/caption_tables.h"

#include <algorithm>

#include "language/module_language.h"

namespace ModuleLanguage {
namespace {

constexpr CaptionRow kFrmMain[] = {
    {CaptionKind::kControl, "butMsgEdit.Caption", "butMsgEdit"},
    {CaptionKind::kControl, "butSchEdit.Caption", "butSchEdit"},
    {CaptionKind::kControl, "butCommand.Caption", "butCommand"},
    {CaptionKind::kControl, "butConfigEdit.Caption", "butConfigEdit"},
    {CaptionKind::kControl, "butEnd.Caption", "butEnd"},
    {CaptionKind::kControl, "lblTitle.Caption", "lblTitle"},
    {CaptionKind::kControl, "lblInfo.Caption", "lblInfo"},
};

constexpr CaptionRow kFrmMsgEditor[] = {
    {CaptionKind::kWindow, "frmMsgEditor.Caption"},
    {CaptionKind::kControl, "frmMsgEditor.frameFileFunction", "frameFileFunction"},
    {CaptionKind::kControl, "frmMsgEditor.butNew", "butNew"},
    {CaptionKind::kControl, "frmMsgEditor.butOpen", "butOpen"},
    {CaptionKind::kControl, "frmMsgEditor.butSave", "butSave"},
    {CaptionKind::kControl, "frmMsgEditor.butSaveAs", "butSaveAs"},
    {CaptionKind::kControl, "frmMsgEditor.butSend", "butSend"},
    {CaptionKind::kControl, "frmMsgEditor.butExit", "butExit"},
    {CaptionKind::kControl, "frmMsgEditor.labelRow", "labelRow"},
    {CaptionKind::kControl, "frmMsgEditor.labelCol", "labelCol"},
    {CaptionKind::kDialogTitle, "DialogTitleOpenMsg", "", 1, &DialogTitleOpenMsg, "Open Message"},
    {CaptionKind::kDialogTitle, "DialogTitleSaveAs", "", 1, &DialogTitleSaveAs, "Save As"},
    {CaptionKind::kDialogTitle, "DialogTitleAddMsg", "", 1, &DialogTitleAddMsg, "Add Message"},
    {CaptionKind::kControl, "frmMsgEditor.frameProperties", "frameProperties"},
    {CaptionKind::kControl, "frmMsgEditor.lblColor", "lblColor"},
    {CaptionKind::kControl, "frmMsgEditor.lblSize", "lblSize"},
    {CaptionKind::kControl, "frmMsgEditor.chkBlink", "chkBlink"},
    {CaptionKind::kList, "frmMsgEditor.ComboColor.List(", "ComboColor", 16},
    {CaptionKind::kList, "frmMsgEditor.ComboSize.List(", "ComboSize", 4},
    {CaptionKind::kControl, "frmMsgEditor.frameSpecial", "frameSpecial"},
    {CaptionKind::kControl, "frmMsgEditor.cmdAddDate", "cmdAddDate"},
    {CaptionKind::kControl, "frmMsgEditor.cmdAddTime", "cmdAddTime"},
    {CaptionKind::kControl, "frmMsgEditor.lblGraphic", "lblGraphic"},
};

constexpr CaptionRow kFrmDimension[] = {
    {CaptionKind::kWindow, "frmDimension.Caption"},
    {CaptionKind::kControl, "frmDimension.lblDimension", "lblDimension"},
    {CaptionKind::kControl, "frmDimension.FrameDimension", "FrameDimension"},
    {CaptionKind::kControl, "frmDimension.butOK", "butOK"},
    {CaptionKind::kControl, "frmDimension.butCancel", "butCancel"},
};

constexpr CaptionRow kFrmSchedule[] = {
    {CaptionKind::kWindow, "frmSchedule.Caption"},
    {CaptionKind::kControl, "frmSchedule.Framefilename", "Framefilename"},
    {CaptionKind::kControl, "frmSchedule.butNew", "butNew"},
    {CaptionKind::kControl, "frmSchedule.butOpen", "butOpen"},
    {CaptionKind::kControl, "frmSchedule.butSave", "butSave"},
    {CaptionKind::kControl, "frmSchedule.butSaveAs", "butSaveAs"},
    {CaptionKind::kControl, "frmSchedule.butSend", "butSend"},
    {CaptionKind::kControl, "frmSchedule.butExit", "butExit"},
    {CaptionKind::kDialogTitle, "DialogTitleOpen", "", 1, &DialogTitleOpen, "Open"},
    {CaptionKind::kDialogTitle, "DialogTitleSaveAs", "", 1, &DialogTitleSaveAs, "Save As"},
    {CaptionKind::kControl, "frmSchedule.FrameDimension", "FrameDimension"},
    {CaptionKind::kControl, "frmSchedule.labelRow", "labelRow"},
    {CaptionKind::kControl, "frmSchedule.labelCol", "labelCol"},
    {CaptionKind::kControl, "frmSchedule.FrameSchTable", "FrameSchTable"},
    {CaptionKind::kTableHeading, "TableTag", "GridSeqTable", 3},
    {CaptionKind::kControl, "frmSchedule.butAdd", "butAdd"},
    {CaptionKind::kControl, "frmSchedule.butInsert", "butInsert"},
    {CaptionKind::kControl, "frmSchedule.butDelete", "butDelete"},
    {CaptionKind::kControl, "frmSchedule.butClear", "butClear"},
};

constexpr CaptionRow kFrmConfig[] = {
    {CaptionKind::kWindow, "frmConfig.Caption"},
    {CaptionKind::kControl, "frmConfig.FrameSelection", "FrameSelection"},
    {CaptionKind::kControl, "frmConfig.optRS232", "optRS232"},
    {CaptionKind::kControl, "frmConfig.optTCPIP", "optTCPIP"},
    {CaptionKind::kControl, "frmConfig.FrameIDConfig", "FrameIDConfig"},
    {CaptionKind::kControl, "frmConfig.lblIDNumber", "lblIDNumber"},
    {CaptionKind::kControl, "frmConfig.lblColor", "lblColor"},
    {CaptionKind::kControl, "frmConfig.lblRow", "lblRow"},
    {CaptionKind::kControl, "frmConfig.lblCol", "lblCol"},
    {CaptionKind::kControl, "frmConfig.butAdd", "butAdd"},
    {CaptionKind::kControl, "frmConfig.butRemove", "butRemove"},
    {CaptionKind::kControl, "frmConfig.butOK", "butOK"},
    {CaptionKind::kControl, "frmConfig.butCancel", "butCancel"},
    {CaptionKind::kControl, "frmConfig.FrameComm", "FrameComm"},
    {CaptionKind::kControl, "frmConfig.PanelSerial", "PanelSerial"},
    {CaptionKind::kControl, "frmConfig.lblIPAdress", "lblIPAdress"},
    {CaptionKind::kControl, "frmConfig.lblIPport", "lblIPport"},
    {CaptionKind::kControl, "frmConfig.FrameBaudRate", "FrameBaudRate"},
};

constexpr CaptionRow kFrmDelay[] = {
    {CaptionKind::kWindow, "frmDelay.Caption"},
    {CaptionKind::kControl, "frmDelay.FrameDelay", "FrameDelay"},
    {CaptionKind::kControl, "frmDelay.FrameFeature", "FrameFeature"},
    {CaptionKind::kFeatureList, "ListFeature.List(", "ListFeature", 10},
    {CaptionKind::kControl, "frmDelay.butOK", "butOK"},
    {CaptionKind::kControl, "frmDelay.butCancel", "butCancel"},
};

constexpr CaptionRow kFrmSendMsg[] = {
    {CaptionKind::kWindow, "frmSendMsg.Caption"},
    {CaptionKind::kControl, "frmSendMsg.frameFile", "frameFile"},
    {CaptionKind::kControl, "frmSendMsg.butBrowse", "butBrowse"},
    {CaptionKind::kControl, "frmSendMsg.labelRow", "labelRow"},
    {CaptionKind::kControl, "frmSendMsg.labelCol", "labelCol"},
    {CaptionKind::kControl, "frmSendMsg.FrameDestination", "FrameDestination"},
    {CaptionKind::kControl, "frmSendMsg.LabelDisplayID", "LabelDisplayID"},
    {CaptionKind::kControl, "frmSendMsg.FrameStatus", "FrameStatus"},
    {CaptionKind::kControl, "frmSendMsg.butSend", "butSend"},
    {CaptionKind::kControl, "frmSendMsg.butDone", "butDone"},
};

constexpr CaptionRow kFrmSendSch[] = {
    {CaptionKind::kWindow, "frmSendSch.Caption"},
    {CaptionKind::kControl, "frmSendSch.frameFile", "frameFile"},
    {CaptionKind::kControl, "frmSendSch.butBrowse", "butBrowse"},
    {CaptionKind::kControl, "frmSendSch.LabelRow", "LabelRow"},
    {CaptionKind::kControl, "frmSendSch.LabelCol", "LabelCol"},
    {CaptionKind::kControl, "frmSendSch.FrameSchNo", "FrameSchNo"},
    {CaptionKind::kControl, "frmSendSch.lblSchNo", "lblSchNo"},
    {CaptionKind::kControl, "frmSendSch.FrameDestination", "FrameDestination"},
    {CaptionKind::kControl, "frmSendSch.LabelDisplayID", "LabelDisplayID"},
    {CaptionKind::kControl, "frmSendSch.FrameStatus", "FrameStatus"},
    {CaptionKind::kControl, "frmSendSch.butSend", "butSend"},
    {CaptionKind::kControl, "frmSendSch.butDone", "butDone"},
};

constexpr CaptionRow kFrmCommand[] = {
    {CaptionKind::kWindow, "frmCommand.Caption"},
    {CaptionKind::kControl, "frmCommand.FrameID", "FrameID"},
    {CaptionKind::kControl, "frmCommand.butSend", "butSend"},
    {CaptionKind::kControl, "frmCommand.butDone", "butDone"},
    {CaptionKind::kList, "ListCommand.List(", "ListCommand", 5},
};

constexpr CaptionRow kFrmPage[] = {
    {CaptionKind::kWindow, "frmPage.Caption"},
    {CaptionKind::kControl, "frmPage.lblPageNo", "lblPageNo"},
    {CaptionKind::kControl, "frmPage.butOk", "butOk"},
    {CaptionKind::kControl, "frmPage.butCancel", "butCancel"},
};

constexpr CaptionTable kTables[] = {
    {"frmMain", false, kFrmMain},          {"frmMsgEditor", true, kFrmMsgEditor},
    {"frmDimension", true, kFrmDimension}, {"frmSchedule", true, kFrmSchedule},
    {"frmConfig", true, kFrmConfig},       {"frmDelay", true, kFrmDelay},
    {"frmSendMsg", true, kFrmSendMsg},     {"frmSendSch", true, kFrmSendSch},
    {"frmCommand", false, kFrmCommand},    {"frmPage", false, kFrmPage},
};

constexpr Message kMessages[] = {
    {"Message", "msgPath", "Invalid path!"},
    {"Message", "msgDrive", "Drive not available!"},
    {"Message", "msgSave", "File not saved. Save it now?"},
    {"Message", "msgNotFound", "File not found"},
    {"Message", "msgErrOpen", "Error in opening file"},
    {"Message", "msgSendCmd", "Send Command"},
    {"Message", "msgSendCmdOK", "Command is sent successfully!"},
    {"Message", "msgErrPoll", "Polling error!"},
    {"Message", "msgClkOK", "Set clock is done!"},
    {"Message", "msgClk", "Set clock"},
    {"Message", "msgDP", "Delete page"},
    {"Message", "msgPage", "Page"},
    {"Message", "msgDPOK", "is deleted."},
    {"Message", "msgDAP", "Delete all message"},
    {"Message", "msgDAPOK", "All pages are deleted!"},
    {"Message", "msgRun", "Run page"},
    {"Message", "msgRunOK", "is running."},
    {"Message", "msgInput", "Invalid input!"},
    {"Message", "msgFormat", "Invalid file fomat!"},
    {"Message", "msgLine", "Invalid line number!"},
    {"Message", "msgDim", "Dimension not matched!"},
    {"Message", "msgExceed", "Cannot exceed 26 message files!"},
    {"Message", "msgFull", "Schedule is full!"},
    {"Message", "msgEmptyFile", "Empty schedule file!"},
    {"Message", "msgEmptySch", "Empty schedule is not allowed!"},
    {"Message", "msgSendMsg", "Send Message"},
    {"Message", "msgSendMsgOK", "Message is sent successfully"},
    {"Message", "msgSendSch", "Send Schedule"},
    {"Message", "msgSendSchOK", "Schedule file download done!"},
    {"Message", "msgErrSend", "Error in sending"},
    {"Message", "msgErrSendSch", "Fail to download schedule file!"},
    {"Message", "msgConfig", "Please configure your system before startup!"},
    {"Message", "msgInvalidID", "Invalid ID!"},
    {"Message", "msgEmptyID", "Empty ID number"},
    {"Message", "msgErrID", "ID error"},
    {"Message", "msgErrIP", "IP address error"},
    {"Message", "msgSend232", "Send by RS232 link?"},
    {"Message", "msgErrTx", "Transmission error!"},
    {"Message", "msgTxFail", "Transmission failure!"},
    {"Message", "msgTxOK", "Transmission finished!"},
    {"Message", "msgErrComm", "Fail to initialize communication port!"},
    {"Message", "msgErrTCP", "Cannot create TCP link!"},
    {"Message", "msgErrConn", "No response from display panel. Please check connection."},
    {"Message", "msgCancel", "Aborted!"},
    {"Message", "msgBrowse", "Browse"},
    {"Message", "msgSchF", "Schedule File"},
    {"Message", "msgSchMsg", "Schedule Message"},
    {"frmMain", "butCommand.Caption", "Command"},
    {"frmSchedule", "frmSchedule.butOpen", "Open"},
    {"frmMsgEditor", "frmMsgEditor.butOpen", "Open Message"},
    {"frmSchedule", "DialogTitleAddMsg", "Add Message"},
    {"frmSchedule", "TableTag1", "Message File"},
    {"frmMsgEditor", "DialogTitleSaveAs", "Save As"},
};

}  // namespace

std::span<const CaptionTable> CaptionTables() { return kTables; }

const CaptionTable* FindCaptionTable(QStringView window) {
  const auto* found = std::find_if(
      std::begin(kTables), std::end(kTables),
      [window](const CaptionTable& table) { return window == QLatin1String(table.window); });
  return found == std::end(kTables) ? nullptr : found;
}

QString CaptionKey(const CaptionRow& row, int n) {
  const QString key = QString::fromLatin1(row.key);
  switch (row.kind) {
    case CaptionKind::kList:
    case CaptionKind::kFeatureList:
      return key + QString::number(n) + QLatin1Char(')');
    case CaptionKind::kTableHeading:
      return key + QString::number(n + 1);
    default:
      return key;
  }
}

QStringList CaptionKeys(const CaptionTable& table) {
  QStringList keys;
  for (const CaptionRow& row : table.rows) {
    for (int n = 0; n < row.count; ++n) keys.append(CaptionKey(row, n));
  }
  return keys;
}

std::span<const Message> Messages() { return kMessages; }

}  // namespace ModuleLanguage
