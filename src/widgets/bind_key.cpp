#include "widgets/bind_key.h"

#include <QCheckBox>
#include <QKeySequence>
#include <QShortcut>

void BindKey(const QKeySequence& keys, QCheckBox* box) {
  QObject::connect(new QShortcut(keys, box->window()), &QShortcut::activated, box,
                   &QCheckBox::toggle);
  box->setToolTip(keys.toString(QKeySequence::NativeText));
}
