#include <algorithm>

#include "language/further_texts.h"

namespace ModuleLanguage {
namespace {

constexpr CaptionRow kFrmMain[] = {
    {CaptionKind::kControl, "frmMain.butShiftMsg", "butShiftMsg"},
    {CaptionKind::kToolTip, "frmMain.butMsgEdit.ToolTip", "butMsgEdit"},
    {CaptionKind::kToolTip, "frmMain.butSchEdit.ToolTip", "butSchEdit"},
    {CaptionKind::kToolTip, "frmMain.butConfigEdit.ToolTip", "butConfigEdit"},
    {CaptionKind::kToolTip, "frmMain.butCommand.ToolTip", "butCommand"},
    {CaptionKind::kToolTip, "frmMain.butEnd.ToolTip", "butEnd"},
};

constexpr CaptionRow kFrmMsgEditor[] = {
    {CaptionKind::kName, "frmMsgEditor.Command3.Name", "Command3"},
    {CaptionKind::kName, "frmMsgEditor.Command4.Name", "Command4"},
    {CaptionKind::kControl, "frmMsgEditor.chkPreview", "chkPreview"},
    {CaptionKind::kControl, "frmMsgEditor.chkOneColor", "chkOneColor"},
    {CaptionKind::kName, "frmMsgEditor.picPreview.Name", "picPreview"},
};

constexpr CaptionRow kFrmSchedule[] = {
    {CaptionKind::kName, "frmSchedule.comboWeek.Name", "comboWeek"},
    {CaptionKind::kControl, "frmSchedule.Label3", "Label3"},
    {CaptionKind::kName, "frmSchedule.txtHour.Name", "txtHour"},
    {CaptionKind::kName, "frmSchedule.txtMin.Name", "txtMin"},
    {CaptionKind::kControl, "frmSchedule.butPlay", "butPlay"},
    {CaptionKind::kControl, "frmSchedule.chkOneColor", "chkOneColor"},
};

constexpr CaptionRow kFrmConfig[] = {
    {CaptionKind::kControl, "frmConfig.lblColumnsNote", "lblColumnsNote"},
};

constexpr CaptionRow kFrmSendMsg[] = {
    {CaptionKind::kControl, "frmSendMsg.Label2", "Label2"},
};

constexpr CaptionRow kFrmShiftMsg[] = {
    {CaptionKind::kWindow, "frmShiftMsg.Caption"},
    {CaptionKind::kControl, "frmShiftMsg.frameFileFunction", "frameFileFunction"},
    {CaptionKind::kControl, "frmShiftMsg.butNew", "butNew"},
    {CaptionKind::kControl, "frmShiftMsg.butOpen", "butOpen"},
    {CaptionKind::kControl, "frmShiftMsg.butSave", "butSave"},
    {CaptionKind::kControl, "frmShiftMsg.butSaveAs", "butSaveAs"},
    {CaptionKind::kControl, "frmShiftMsg.butSend", "butSend"},
    {CaptionKind::kControl, "frmShiftMsg.butExit", "butExit"},
    {CaptionKind::kControl, "frmShiftMsg.frameProperties", "frameProperties"},
    {CaptionKind::kControl, "frmShiftMsg.lblColor", "lblColor"},
    {CaptionKind::kControl, "frmShiftMsg.lblSize", "lblSize"},
    {CaptionKind::kControl, "frmShiftMsg.chkBlink", "chkBlink"},
    {CaptionKind::kList, "frmShiftMsg.ComboColor.List(", "ComboColor", 16},
    {CaptionKind::kList, "frmShiftMsg.ComboSize.List(", "ComboSize", 4},
    {CaptionKind::kToolTip, "frmShiftMsg.lblPosition.ToolTip", "lblPosition"},
    {CaptionKind::kControl, "frmShiftMsg.butPlay", "butPlay"},
    {CaptionKind::kControl, "frmShiftMsg.lblColumns", "lblColumns"},
};

constexpr CaptionRow kFrmSendShift[] = {
    {CaptionKind::kWindow, "frmSendShift.Caption"},
    {CaptionKind::kControl, "frmSendShift.frameFile", "frameFile"},
    {CaptionKind::kControl, "frmSendShift.butBrowse", "butBrowse"},
    {CaptionKind::kControl, "frmSendShift.FrameDestination", "FrameDestination"},
    {CaptionKind::kControl, "frmSendShift.LabelDisplayID", "LabelDisplayID"},
    {CaptionKind::kControl, "frmSendShift.labelLine", "labelLine"},
    {CaptionKind::kControl, "frmSendShift.FrameStatus", "FrameStatus"},
    {CaptionKind::kControl, "frmSendShift.butSend", "butSend"},
    {CaptionKind::kControl, "frmSendShift.butDone", "butDone"},
};

constexpr CaptionTable kTables[] = {
    {"frmMain", false, kFrmMain},           {"frmMsgEditor", false, kFrmMsgEditor},
    {"frmSchedule", false, kFrmSchedule},   {"frmConfig", false, kFrmConfig},
    {"frmSendMsg", false, kFrmSendMsg},     {"frmShiftMsg", false, kFrmShiftMsg},
    {"frmSendShift", false, kFrmSendShift},
};

}  // namespace

std::span<const CaptionTable> FurtherCaptions() { return kTables; }

const CaptionTable* FindFurtherCaptions(QStringView window) {
  const auto* found = std::find_if(
      std::begin(kTables), std::end(kTables),
      [window](const CaptionTable& table) { return window == QLatin1String(table.window); });
  return found == std::end(kTables) ? nullptr : found;
}

}  // namespace ModuleLanguage
