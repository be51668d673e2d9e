#include "row/attribute_menus.h"

#include <algorithm>
#include <optional>

#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>

#include "row/dots_delegate.h"
#include "widgets/fitted_text.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::Attributes;
using Brivon1::EditedMessage;
using Brivon1::PageRow;

/// A menu's pictures are otherwise as wide as they are high.
class WidePictureStyle : public QProxyStyle {
 public:
  explicit WidePictureStyle(QSize picture) : picture_(picture) {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    return metric == PM_SmallIconSize ? picture_.width()
                                      : QProxyStyle::pixelMetric(metric, option, widget);
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || entry == nullptr) {
      return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
    QStyleOptionMenuItem without_picture = *entry;
    without_picture.icon = QIcon();
    return QProxyStyle::sizeFromContents(type, &without_picture, size, widget)
        .expandedTo(QSize(0, picture_.height() + 2));
  }

 private:
  QSize picture_;
};

QString CaptionOf(const QComboBox* list) {
  const QList<QLabel*> labels = list->window()->findChildren<QLabel*>();
  const auto label = std::find_if(labels.begin(), labels.end(),
                                  [list](const QLabel* each) { return each->buddy() == list; });
  return label == labels.end() ? QString() : SpokenCaption((*label)->text());
}

/// A text in which "&" marks no letter.
QString Plain(QString text) { return text.replace(u'&', "&&"_L1); }

/// What all selected characters have in common, if anything; without a selection that of what is
/// typed next.
std::optional<char> Common(const EditedMessage& message, char Attributes::*attribute) {
  const PageRow& row = message.EditedRow();
  if (!row.HasSelection()) return message.CurrentAttributes().*attribute;
  const char first = row.AttributesAt(row.SelectionBegin()).*attribute;
  for (qsizetype at = row.SelectionBegin(); at < row.SelectionEnd(); ++at) {
    if (row.AttributesAt(at).*attribute != first) return std::nullopt;
  }
  return first;
}

/// As who opens the list and chooses there.
void ChooseIn(QComboBox* list, int entry) {
  list->setCurrentIndex(entry);
  Q_EMIT list->activated(entry);
}

void AddList(QMenu* menu, QComboBox* list, QByteArray (*text_of)(int), std::optional<char> chosen) {
  QMenu* entries = menu->addMenu(Plain(CaptionOf(list)));
  auto* group = new QActionGroup(entries);
  // Beside a picture some styles hardly mark what is checked.
  QFont bold = entries->font();
  bold.setBold(true);
  QSize picture_size;
  for (int n = 0; n < list->count(); ++n) {
    const QPixmap picture =
        InDots(text_of(n), entries->fontMetrics(), entries->devicePixelRatioF());
    picture_size = picture_size.expandedTo(picture.deviceIndependentSize().toSize());
    QAction* action = entries->addAction(picture, Plain(list->itemText(n)), list,
                                         [list, n] { ChooseIn(list, n); });
    action->setCheckable(true);
    action->setChecked(chosen == static_cast<char>('A' + n));
    if (action->isChecked()) action->setFont(bold);
    action->setIconVisibleInMenu(true);
    group->addAction(action);
  }
  auto* style = new WidePictureStyle(picture_size);
  style->setParent(entries);
  entries->setStyle(style);
}

}  // namespace

void AddAttributes(QMenu* menu, const AttributeControls& controls, const EditedMessage& message,
                   const std::function<void(bool)>& choose_blink) {
  AddList(menu, controls.colour, &ColourInDots, Common(message, &Attributes::colour));
  AddList(menu, controls.size, &SizeInDots, Common(message, &Attributes::size));
  QAction* blinking = menu->addAction(Plain(WithoutShortcutMark(controls.blink->text())));
  blinking->setCheckable(true);
  blinking->setChecked(Common(message, &Attributes::blink) == Brivon1::kBlinking);
  QObject::connect(blinking, &QAction::triggered, controls.blink,
                   [box = controls.blink, choose_blink](bool checked) {
                     if (box->isChecked() == checked) {
                       choose_blink(checked);
                     } else {
                       box->setChecked(checked);
                     }
                   });
}
