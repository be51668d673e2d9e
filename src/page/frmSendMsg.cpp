#include "page/frmSendMsg.h"

frmSendMsg::frmSendMsg(QWidget* parent, const QString& /*file_name*/) : QDialog(parent) {
  setObjectName(QStringLiteral("frmSendMsg"));
}
