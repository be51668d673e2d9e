// The list from which a window that sends has its panel chosen.
#pragma once

#include <array>
#include <optional>

#include <QObject>

#include "store/configuration_store.h"
#include "store/panel_list.h"

class QComboBox;

class PanelChoice : public QObject {
  Q_OBJECT

 public:
  /// Fills `list`, and belongs to it, with one entry for each configured panel, shown as `line`
  /// makes it; no entry is selected.
  explicit PanelChoice(
      QComboBox* list,
      QByteArray (*line)(int id, const Brivon1::PanelEntry& entry) = Brivon1::PanelListLine);

  /// The selected panel as it was when the list was filled, or nothing without a selection.
  std::optional<Brivon1::PanelListEntry> Selected() const;

 private:
  QComboBox* list_;  // the entries' data are the panels' IDs
  std::array<Brivon1::PanelEntry, Brivon1::kPanelIds> panels_;
};
