#include "page/frmPage.h"

frmPage::frmPage(QWidget* parent) : QDialog(parent) { setObjectName(QStringLiteral("frmPage")); }
