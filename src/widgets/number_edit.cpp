#include "widgets/number_edit.h"

#include <QRegularExpressionValidator>

#include "base/number_field.h"

using namespace Qt::StringLiterals;

NumberEdit::NumberEdit(QWidget* parent) : QLineEdit(parent) {
  static const QRegularExpression digits(u"[0-9]*"_s);
  setValidator(new QRegularExpressionValidator(digits, this));
}

void NumberEdit::SetBounds(int lowest, int highest) {
  const auto changed =
      [this, field = Brivon1::NumberField(lowest, highest)](const QString& text) mutable {
        const QString valid = field.Changed(text);
        if (valid != text) setText(valid);  // the caret goes to its end
      };
  connect(this, &QLineEdit::textChanged, this, changed);
}
