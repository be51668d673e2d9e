// The words that choose panels: "1,4-9,26", "all", "4x96", "mono", "tri". A comma adds panels, a
// "+" narrows them down: "4x96+tri" is every panel of that size that shows three colours.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include <QList>
#include <QString>

#include "base/dimension.h"
#include "store/configuration_store.h"

namespace BrivonCtl {

struct IdRange {
  int first;
  int last;
};

struct AllPanels {};

using PanelWord = std::variant<IdRange, AllPanels, Brivon1::Dimension, Brivon1::ColourType>;

/// The panels for which every word holds.
struct PanelGroup {
  std::string text;  ///< As it was written.
  QList<PanelWord> words;
};

struct PanelWords {
  QList<PanelGroup> groups;
  QString wrong;  ///< What is wrong with a text that is none, and what would be right.

  /// Whether it takes in every panel, be it under the ID that addresses all of them.
  bool NamesAll() const;
};

PanelWords ReadPanelWords(std::string_view text);

/// The panels that were chosen.
struct ChosenPanels {
  QList<int> ids;  ///< Ascending, each once, the ones that are not configured included.
  QString empty;   ///< The first group that no configured panel belongs to, as it was written.
};

/// Whom the words choose. An ID is chosen whether it is configured or not; the other words choose
/// configured panels alone, and never ID 0, which addresses all of them together.
ChosenPanels Choose(const PanelWords& words, const Brivon1::Configuration& configuration);

/// Whether `ids` are all configured panels, be it under the ID that addresses all of them.
bool AreAll(const QList<int>& ids, const Brivon1::Configuration& configuration);

}  // namespace BrivonCtl
