#include "window/faults_menu.h"

#include <QInputDialog>
#include <QMessageBox>

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
    : QMenu(QStringLiteral("&Faults"), parent), engine_(engine) {
  setObjectName(QStringLiteral("faults"));
  none_ = addAction(QStringLiteral("&None"), this, [this] {
    SetPlugged(true);
    engine_->SetFaults(Faults());
  });
  none_->setObjectName(QStringLiteral("fault_none"));
  none_->setCheckable(true);
  addSeparator();
  for (const OfferedFault& fault : kOfferedFaults) {
    const QString name = QLatin1String(fault.name);
    QAction* action = addAction(QLatin1String(fault.caption), this,
                                [this, name](bool is_wanted) { Toggle(name, is_wanted); });
    action->setObjectName(QStringLiteral("fault_") + name);
    action->setCheckable(true);
    faults_.insert(name, action);
  }
  addAction(QStringLiteral("&Other\u2026"), this, &FaultsMenu::AskForFault)
      ->setObjectName(QStringLiteral("fault_other"));
  addSeparator();
  unplugged_ = addAction(QStringLiteral("&Unplugged"), this,
                         [this](bool is_wanted) { SetPlugged(!is_wanted); });
  unplugged_->setObjectName(QStringLiteral("fault_unplugged"));
  unplugged_->setCheckable(true);
  connect(engine_, &PanelEngine::FaultsChanged, this, &FaultsMenu::Refresh);
  Refresh();
}

QStringList FaultsMenu::Names() const {
  QStringList names = NamesOf(engine_->CurrentFaults());
  if (!is_plugged_) names.append(QStringLiteral("unplugged"));
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
  bool is_entered = false;
  const QString name = QInputDialog::getText(
      parentWidget(), QStringLiteral("Fault"),
      QStringLiteral("One of %1:").arg(FaultNames().join(QStringLiteral(", "))), QLineEdit::Normal,
      QString(), &is_entered);
  if (!is_entered) return;
  Faults faults = engine_->CurrentFaults();
  QString error;
  if (ParseFault(name.trimmed(), &faults, &error)) {
    engine_->SetFaults(faults);
  } else {
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Fault"), error, QMessageBox::Ok,
                    parentWidget());
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
