#include "page/frmDimension.h"

frmDimension::frmDimension(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmDimension"));
}
