#include "sending/panel_choice.h"

#include <QComboBox>

#include "base/code_page.h"
#include "widgets/ignore_wheel.h"

using Brivon1::PanelEntry;

PanelChoice::PanelChoice(QComboBox* list, QByteArray (*line)(int id, const PanelEntry& entry))
    : QObject(list), list_(list), panels_(Brivon1::Store().panels) {
  list_->clear();
  for (int id = 0; id < Brivon1::kPanelIds; ++id) {
    const PanelEntry& panel = panels_[static_cast<std::size_t>(id)];
    if (panel.IsConfigured()) {
      list_->addItem(Brivon1::CodePage::System().ToText(line(id, panel)), id);
    }
  }
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
