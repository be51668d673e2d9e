// The configuration: any "brivon.ini" gives values within their bounds; saving it loses nothing,
// and saving it once more changes nothing.
#include "base/text.h"
#include "config/configuration_draft.h"
#include "fuzz/files.h"
#include "fuzz/must.h"
#include "fuzz/targets.h"
#include "store/configuration_store.h"
#include "store/ini_file.h"
#include "store/panel_list.h"

using namespace Qt::StringLiterals;

namespace Fuzz {
namespace {

using Brivon1::AddResult;
using Brivon1::Configuration;
using Brivon1::ConfigurationDraft;
using Brivon1::PanelBoxes;
using Brivon1::PanelEntry;
using Brivon1::SaveResult;

constexpr QLatin1String kIni("brivon.ini");

void MustBeWithinBounds(const Configuration& store) {
  for (const PanelEntry& panel : store.panels) {
    Must(panel.rows >= 0 && panel.columns >= 0 && panel.columns <= 999, "rows and columns");
    Must(panel.colour_type == Brivon1::kMono || panel.colour_type == Brivon1::kTri, "two colours");
    Must(panel.address.size() <= Brivon1::kLongestPanelValue, "an address is part of a value");
  }
  Must(store.send_mode.size() <= 5, "a send mode of five characters");
  Must(store.baud_rate >= 0 && store.com_port >= 0 && store.code_page >= 0, "no negative numbers");
  Must(store.delay_period >= 0 && store.delay_period <= Brivon1::kLongestDelayPeriod,
       "a pause ends");
  for (const auto& [port, device] : store.serial_devices) {
    Must(!device.isEmpty() && !Brivon1::SerialDevice(store, port).isEmpty(), "a device has a name");
  }
  for (const QByteArray& line : Brivon1::PanelListLines(store)) {
    const Brivon1::PanelListEntry entry = Brivon1::ReadPanelListLine(line);
    const PanelEntry& panel = store.panels[static_cast<std::size_t>(entry.id)];
    Must(entry.rows == panel.rows && entry.columns == panel.columns, "a listed panel is stored");
  }
}

void MustBeTheSame(const Configuration& one, const Configuration& other) {
  for (std::size_t id = 0; id < one.panels.size(); ++id) {
    // A panel of no rows or no columns is none, whatever else was written of it.
    if (!one.panels[id].IsConfigured() && !other.panels[id].IsConfigured()) continue;
    Must(one.panels[id] == other.panels[id], "every panel comes back");
  }
  Must(one.send_mode == other.send_mode, "the send mode comes back");
  Must(one.baud_rate == other.baud_rate && one.com_port == other.com_port, "the port comes back");
  Must(one.delay_period == other.delay_period && one.code_page == other.code_page,
       "what no window shows comes back");
  Must(one.serial_devices == other.serial_devices, "the devices come back");
  Must(one.dtr == other.dtr && one.rts == other.rts, "the control lines come back");
}

/// What a save makes of a file, without the file, which would take most of the time.
QByteArray Applied(const ConfigurationDraft& draft, const QByteArray& content) {
  Brivon1::IniFile file(content);
  draft.Apply(file);
  return file.Content();
}

void MustComeBack(const Configuration& store) {
  Must(ConfigurationDraft(store).Save() == SaveResult::kSaved, "a configuration is saved");
  MustBeTheSame(store, Brivon1::Store());
  const QByteArray written = ReadFile(kIni);
  Must(Applied(ConfigurationDraft(Brivon1::Store()), written) == written,
       "what is saved again has the same bytes");
}

/// Puts each panel's boxes into another slot, as an operator may, and the last one away.
void MustBeEditable(const Configuration& store) {
  ConfigurationDraft draft(store);
  constexpr std::size_t kFree = 254;
  for (int id = 0; id < Brivon1::kPanelIds; ++id) {
    const auto slot = static_cast<std::size_t>(id);
    if (!store.panels[slot].IsConfigured() || slot == kFree) continue;
    PanelBoxes boxes = draft.Boxes(id);
    Must(draft.Holds(boxes), "a draft holds what its boxes show");
    boxes.id = QString::number(kFree);
    const PanelEntry before = draft.Values().panels[kFree];
    const AddResult result = draft.Add(boxes);
    const PanelEntry& after = draft.Values().panels[kFree];
    if (result == AddResult::kAdded) {
      Must(after.rows == store.panels[slot].rows && after.columns == store.panels[slot].columns,
           "the panel is added as its boxes say");
      Must(draft.Holds(boxes) && Brivon1::InputRemedy(boxes).isEmpty(), "and nothing is wrong");
    } else {
      Must(after == before, "what is refused leaves the draft as it was");
      Must(result == AddResult::kInvalidAddress ? !Brivon1::IpAddress(boxes.address)
                                                : !Brivon1::InputRemedy(boxes).isEmpty(),
           "the operator is told why a panel is refused");
    }
    Must(draft.Values().panels[slot] == store.panels[slot], "other slots stay");
  }
  Must(draft.Save() == SaveResult::kSaved, "an edited configuration is saved");
  MustBeTheSame(draft.Values(), Brivon1::Store());

  ConfigurationDraft emptied(Brivon1::Store());
  for (int id = 0; id < Brivon1::kPanelIds; ++id) {
    if (emptied.Values().panels[static_cast<std::size_t>(id)].IsConfigured()) emptied.Remove(id);
  }
  const Brivon1::IniFile without_panels(Applied(emptied, ReadFile(kIni)));
  Must(Brivon1::PanelListLines(Brivon1::ReadConfiguration(without_panels)).isEmpty(),
       "a removed panel does not come back");
}

}  // namespace

void CheckConfiguration(const QByteArray& input) {
  WriteFile(kIni, input);
  Brivon1::LoadConfiguration();
  const Configuration store = Brivon1::Store();
  Must(ReadFile(kIni) == input, "a file that is read stays as it is");
  MustBeWithinBounds(store);
  MustComeBack(store);
  if (!Brivon1::PanelListLines(store).isEmpty()) MustBeEditable(store);
  Must(IsAlone(kIni), "a save leaves one file");
}

}  // namespace Fuzz
