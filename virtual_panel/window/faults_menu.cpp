#include "window/faults_menu.h"

#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

// What the menu offers, by the names of the command line.
struct OfferedFault {
  const char* caption;
  const char* name;
};
constexpr OfferedFault kOfferedFaults[] = {
    {"&Silent", "silent"},
    {"Silent for the First &3 Answers", "silent:3"},
    {"&Garbled Answers", "garbage"},
    {"Lower-Case &Address", "lower-case"},
    {"Answers in &Pieces", "pieces"},
    {"Answers Late by &Half a Second", "late:500"},
    {"Answers &Late by Two Seconds", "late:2000"},
    {"Stray &Byte before Each Answer", "stray-byte"},
    {"&Cut the Line after the Next Frame", "close-after:1"},
    {"&Flood of Bytes", "flood"},
};

}  // namespace

FaultsMenu::FaultsMenu(PanelEngine* engine, QWidget* parent)
    : QMenu(u"&Faults"_s, parent), engine_(engine) {
  setObjectName(u"faults"_s);
  none_ = addAction(u"&None"_s, this, [this] {
    SetPlugged(true);
    engine_->SetFaults(Faults());
  });
  none_->setObjectName(u"fault_none"_s);
  none_->setCheckable(true);
  addSeparator();
  for (const OfferedFault& fault : kOfferedFaults) {
    const QString name = QLatin1String(fault.name);
    QAction* action = addAction(QLatin1String(fault.caption), this,
                                [this, name](bool is_wanted) { Toggle(name, is_wanted); });
    action->setObjectName(u"fault_"_s + name);
    action->setCheckable(true);
    faults_.insert(name, action);
  }
  addAction(u"&Other\u2026"_s, this, &FaultsMenu::AskForFault)->setObjectName(u"fault_other"_s);
  addSeparator();
  unplugged_ = addAction(u"&Unplugged"_s, this, [this](bool is_wanted) { SetPlugged(!is_wanted); });
  unplugged_->setObjectName(u"fault_unplugged"_s);
  unplugged_->setCheckable(true);
  connect(engine_, &PanelEngine::FaultsChanged, this, &FaultsMenu::Refresh);
  Refresh();
}

QStringList FaultsMenu::Names() const {
  QStringList names = NamesOf(engine_->CurrentFaults());
  if (!is_plugged_) names.append(u"unplugged"_s);
  return names;
}

void FaultsMenu::Toggle(const QString& name, bool is_wanted) {
  Faults faults = engine_->CurrentFaults();
  if (is_wanted) {
    ParseFault(name, &faults, nullptr);
  } else {
    RemoveFault(name, &faults);
  }
  engine_->SetFaults(faults);
}

void FaultsMenu::AskForFault() {
  QInputDialog dialog(parentWidget());
  dialog.setWindowTitle(u"Fault"_s);
  dialog.setLabelText(u"One of %1:"_s.arg(FaultNames().join(u", "_s)));
  // The names in one line are wider than a small screen.
  if (auto* label = dialog.findChild<QLabel*>()) label->setWordWrap(true);
  if (dialog.exec() != QDialog::Accepted) return;
  const QString name = dialog.textValue();
  Faults faults = engine_->CurrentFaults();
  QString error;
  if (ParseFault(name.trimmed(), &faults, &error)) {
    engine_->SetFaults(faults);
  } else {
    QMessageBox box(QMessageBox::Warning, u"Fault"_s, error, QMessageBox::Ok, parentWidget());
    box.setTextFormat(Qt::PlainText);
    box.exec();
  }
}

void FaultsMenu::SetPlugged(bool plugged) {
  if (plugged != is_plugged_) {
    is_plugged_ = plugged;
    Q_EMIT Plugged(plugged);
  }
  Refresh();
}

void FaultsMenu::Refresh() {
  for (auto fault = faults_.cbegin(); fault != faults_.cend(); ++fault) {
    (*fault)->setChecked(HasFault(fault.key(), engine_->CurrentFaults()));
  }
  const QStringList names = Names();
  unplugged_->setChecked(!is_plugged_);
  none_->setChecked(names.isEmpty());
  Q_EMIT NamesChanged(names);
}

}  // namespace VirtualPanel
