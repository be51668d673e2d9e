#include "orders/panel_words.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

constexpr int kHighestId = Brivon1::kPanelIds - 1;
constexpr int kMostColumns = 32767;

QString Quoted(std::string_view text) { return u'"' + TextOf(std::string(text)) + u'"'; }

QString WhatWouldDo() {
  return u"panels are named by numbers from 0 to 255, as in 1,4-9, or by all, 4x96, mono, tri"_s;
}

/// The parts of `text` between the separators; one empty part of an empty text.
QList<std::string_view> Split(std::string_view text, char separator) {
  QList<std::string_view> parts;
  while (true) {
    const std::size_t end = text.find(separator);
    parts.append(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

/// The two numbers around `separator`.
std::optional<std::pair<int, int>> TwoNumbers(std::string_view text, char separator, int highest) {
  const QList<std::string_view> parts = Split(text, separator);
  if (parts.size() != 2) return std::nullopt;
  const auto first = WholeNumber(parts[0], 0, highest);
  const auto second = WholeNumber(parts[1], 0, highest);
  if (!first || !second) return std::nullopt;
  return std::pair(*first, *second);
}

std::optional<PanelWord> ReadWord(std::string_view text, QString* wrong) {
  if (text == "all") return AllPanels{};
  if (text == "mono") return Brivon1::kMono;
  if (text == "tri") return Brivon1::kTri;
  if (const auto id = WholeNumber(text, 0, kHighestId)) return IdRange{*id, *id};
  if (const auto ids = TwoNumbers(text, '-', kHighestId)) {
    if (ids->first == 0 || ids->second == 0) {
      *wrong =
          u"%1 reaches to ID 0, which is all panels at once; write 0 alone, or a range from 1"_s
              .arg(Quoted(text));
      return std::nullopt;
    }
    if (ids->first <= ids->second) return IdRange{ids->first, ids->second};
    *wrong = u"%1 runs backwards; write %2-%3"_s.arg(Quoted(text)).arg(ids->second).arg(ids->first);
    return std::nullopt;
  }
  if (const auto size = TwoNumbers(text, 'x', kMostColumns)) {
    if (size->first >= 1 && size->first <= Brivon1::kMaxRows && size->second >= 1) {
      return Brivon1::Dimension{static_cast<qint16>(size->first),
                                static_cast<qint16>(size->second)};
    }
    *wrong = u"%1 is no size; a panel has 1 to 12 rows, as in 4x96"_s.arg(Quoted(text));
    return std::nullopt;
  }
  *wrong = (text.empty() ? u"a panel is missing"_s : Quoted(text) + u" is no panel"_s) + u"; "_s +
           WhatWouldDo();
  return std::nullopt;
}

bool Holds(const PanelWord& word, int id, const Brivon1::PanelEntry& entry) {
  if (const auto* range = std::get_if<IdRange>(&word)) {
    return id >= range->first && id <= range->last;
  }
  if (id == 0 || !entry.IsConfigured()) return false;
  if (const auto* size = std::get_if<Brivon1::Dimension>(&word)) {
    return *size == Brivon1::Dimension{entry.rows, entry.columns};
  }
  if (const auto* colour = std::get_if<Brivon1::ColourType>(&word)) {
    return entry.colour_type == *colour;
  }
  return true;
}

}  // namespace

bool PanelWords::NamesAll() const {
  return std::any_of(groups.begin(), groups.end(), [](const PanelGroup& group) {
    return std::all_of(group.words.begin(), group.words.end(), [](const PanelWord& word) {
      const auto* range = std::get_if<IdRange>(&word);
      return std::holds_alternative<AllPanels>(word) || (range != nullptr && range->first == 0);
    });
  });
}

PanelWords ReadPanelWords(std::string_view text) {
  PanelWords words;
  for (const std::string_view part : Split(text, ',')) {
    PanelGroup group{std::string(part), {}};
    for (const std::string_view word : Split(part, '+')) {
      const auto read = ReadWord(word, &words.wrong);
      if (!read) return {{}, words.wrong};
      group.words.append(*read);
    }
    words.groups.append(group);
  }
  return words;
}

ChosenPanels Choose(const PanelWords& words, const Brivon1::Configuration& configuration) {
  ChosenPanels chosen;
  std::array<bool, Brivon1::kPanelIds> is_chosen{};
  for (const PanelGroup& group : words.groups) {
    bool is_empty = true;
    for (int id = 0; id < Brivon1::kPanelIds; ++id) {
      const auto place = static_cast<std::size_t>(id);
      const bool holds = std::all_of(
          group.words.begin(), group.words.end(),
          [&](const PanelWord& word) { return Holds(word, id, configuration.panels[place]); });
      is_chosen[place] = is_chosen[place] || holds;
      if (holds) is_empty = false;
    }
    if (is_empty && chosen.empty.isEmpty()) chosen.empty = TextOf(group.text);
  }
  for (int id = 0; id < Brivon1::kPanelIds; ++id) {
    if (is_chosen[static_cast<std::size_t>(id)]) chosen.ids.append(id);
  }
  return chosen;
}

bool AreAll(const QList<int>& ids, const Brivon1::Configuration& configuration) {
  if (ids.contains(0)) return true;
  for (int id = 1; id < Brivon1::kPanelIds; ++id) {
    const bool is_configured = configuration.panels[static_cast<std::size_t>(id)].IsConfigured();
    if (is_configured && !ids.contains(id)) return false;
  }
  return true;
}

}  // namespace BrivonCtl
