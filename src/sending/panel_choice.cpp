#include "sending/panel_choice.h"

#include <QComboBox>

#include "language/further_texts.h"
#include "widgets/ignore_wheel.h"

using Brivon1::PanelEntry;

PanelChoice::PanelChoice(QComboBox* list, QByteArray (*line)(int id, const PanelEntry& entry))
    : QObject(list), list_(list), panels_(Brivon1::Store().panels) {
  list_->clear();
  QList<int> ids;
  QList<QByteArray> lines;
  for (int id = 0; id < Brivon1::kPanelIds; ++id) {
    const PanelEntry& panel = panels_[static_cast<std::size_t>(id)];
    if (!panel.IsConfigured()) continue;
    ids.append(id);
    lines.append(line(id, panel));
  }
  const QStringList shown = ModuleLanguage::ShownPanelLines(lines);
  for (qsizetype i = 0; i < ids.size(); ++i) list_->addItem(shown[i], ids[i]);
  list_->setCurrentIndex(-1);
  IgnoreWheel(list_);
}

std::optional<Brivon1::PanelListEntry> PanelChoice::Selected() const {
  if (list_->currentIndex() < 0) return std::nullopt;
  const int id = list_->currentData().toInt();
  const PanelEntry& panel = panels_[static_cast<std::size_t>(id)];
  return Brivon1::PanelListEntry{id, panel.rows, panel.columns,
                                 Brivon1::ReadEndpoint(panel.address)};
}
