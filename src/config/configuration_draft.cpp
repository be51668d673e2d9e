#include "config/configuration_draft.h"

#include <QStringList>

#include "base/code_page.h"
#include "base/number_field.h"
#include "base/text.h"
#include "language/module_language.h"
#include "store/panel_list.h"
#include "store/writable_folder.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::TranslateMessage;

constexpr int kAddressParts = 4;
constexpr int kHighestAddressPart = 254;
constexpr int kMostColumnsReadBack = 999;

QByteArrayView ColourWord(const PanelEntry& entry) {
  return entry.colour_type == kTri ? QByteArrayView("Tri") : QByteArrayView("Mono");
}

/// What a box that takes `lowest` to `highest` shows for a stored number.
QString BoxText(int number, int lowest, int highest) {
  return number < lowest || number > highest ? QString() : QString::number(number);
}

void WriteNumber(IniFile& file, QByteArrayView key, int number, int written) {
  if (number == written && file.Value(kCommunicationSection, key)) return;
  file.SetValue(kCommunicationSection, key, QByteArray::number(number));
}

/// What boxes describe: a panel, or why it is none.
struct BoxedPanel {
  AddResult result;
  std::size_t slot = 0;
  PanelEntry entry = {};
};

BoxedPanel ReadBoxes(const PanelBoxes& boxes) {
  // The address first: pressing the button has left its box.
  const auto address = IpAddress(boxes.address);
  if (!address) return {AddResult::kInvalidAddress};
  const auto id = WholeNumber(boxes.id, 0, kHighestPanelId);
  const auto rows = WholeNumber(boxes.rows, 1, kMaxRows);
  const auto columns = WholeNumber(boxes.columns, 1, kMostColumns);
  const QString port = boxes.port.isEmpty() ? QString::number(kDefaultTcpPort) : boxes.port;
  if (!id || !rows || !columns || !WholeNumber(port, 1, kHighestTcpPort)) {
    return {AddResult::kInvalidInput};
  }
  PanelEntry entry;
  entry.rows = static_cast<qint16>(*rows);
  entry.columns = static_cast<qint16>(*columns);
  entry.colour_type = boxes.colour_type;
  entry.address = (*address + u':' + port).toLatin1();
  if (PanelValue(entry).size() > kLongestPanelValue) return {AddResult::kInvalidInput};
  return {AddResult::kAdded, static_cast<std::size_t>(*id), entry};
}

}  // namespace

std::optional<QString> IpAddress(const QString& text) {
  QStringList parts = text.split(u'.');
  if (parts.size() != kAddressParts) return std::nullopt;
  for (QString& part : parts) {
    const auto number = WholeNumber(part, 0, kHighestAddressPart);
    if (!number) return std::nullopt;
    part = QString::number(*number);
  }
  return parts.join(u'.');
}

QString InputRemedy(const PanelBoxes& boxes) {
  const auto lacks = [](const QString& box, int lowest, int highest) {
    return !WholeNumber(box, lowest, highest);
  };
  if (lacks(boxes.id, 0, kHighestPanelId)) {
    return TranslateMessage(u"Enter an ID number from 0 to %1."_s).arg(kHighestPanelId);
  }
  if (lacks(boxes.rows, 1, kMaxRows)) {
    return TranslateMessage(u"Enter 1 to %1 rows."_s).arg(kMaxRows);
  }
  if (lacks(boxes.columns, 1, kMostColumns)) {
    return TranslateMessage(u"Enter 1 to %1 dot columns."_s).arg(kMostColumns);
  }
  if (!boxes.port.isEmpty() && lacks(boxes.port, 1, kHighestTcpPort)) {
    return TranslateMessage(u"Enter a port from 1 to %1, or none for port %2."_s)
        .arg(kHighestTcpPort)
        .arg(kDefaultTcpPort);
  }
  if (ReadBoxes(boxes).result == AddResult::kAdded) return {};
  return TranslateMessage(
             u"The entry of a panel has at most %1 characters in the file: enter a port of fewer digits."_s)
      .arg(kLongestPanelValue);
}

QString AddressRemedy(const QString& text) {
  return TranslateMessage(u"\"%1\" is not four numbers from 0 to 254 with points between them."_s)
      .arg(text);
}

QString ConfigurationRemedy(SaveResult result, const QString& reason, const QString& button) {
  const auto why = [&](const QString& remedy) {
    return ConfigurationPath() + u": "_s + TranslateMessage(reason) + u'\n' + remedy;
  };
  switch (result) {
    case SaveResult::kSaved:
      return {};
    case SaveResult::kInvalidPath:
      return why(
          TranslateMessage(
              u"Make sure that this file can be read and written, then press \"%1\" again."_s)
              .arg(button));
    case SaveResult::kDriveNotAvailable:
      return why(TranslateMessage(u"Make room there, then press \"%1\" again."_s).arg(button));
    case SaveResult::kLocked:
      return why(TranslateMessage(
                     u"Press \"%1\" again. If no other program is saving it, delete %2 first."_s)
                     .arg(button, FileLock(ConfigurationPath()).Path()));
  }
  return {};
}

bool IsNoAddress(const QString& address) { return IpAddress(address) == kNoAddress; }

bool IsReadBackShort(const QString& columns) {
  return WholeNumber(columns, kMostColumnsReadBack + 1, kMostColumns).has_value();
}

QByteArray PanelValue(const PanelEntry& entry) {
  const QByteArray panel = QByteArray::number(entry.rows) + 'x' +
                           QByteArray::number(entry.columns) + ',' +
                           ColourWord(entry).toByteArray();
  return entry.address == ColourWord(entry) ? panel : panel + ',' + entry.address;
}

void ConfigurationDraft::ChooseMode(SendMode mode) {
  switch (mode) {
    case SendMode::kSerial:
      values_.send_mode = "RS232";
      break;
    case SendMode::kTcp:
      values_.send_mode = "TCPIP";
      break;
    case SendMode::kNone:
      break;
  }
}

AddResult ConfigurationDraft::Add(const PanelBoxes& boxes) {
  const BoxedPanel panel = ReadBoxes(boxes);
  if (panel.result == AddResult::kAdded) values_.panels[panel.slot] = panel.entry;
  return panel.result;
}

bool ConfigurationDraft::Holds(const PanelBoxes& boxes) const {
  if (boxes == PanelBoxes()) return true;
  const auto id = WholeNumber(boxes.id, 0, kHighestPanelId);
  if (!id || !values_.panels[static_cast<std::size_t>(*id)].IsConfigured()) return false;
  if (boxes == Boxes(*id)) return true;  // also of an entry that Add() would not take
  const BoxedPanel panel = ReadBoxes(boxes);
  return panel.result == AddResult::kAdded && panel.entry == values_.panels[panel.slot];
}

std::optional<int> ConfigurationDraft::Remove(int id) {
  values_.panels[static_cast<std::size_t>(id)] = {};
  const auto is_configured = [this](int other) {
    return values_.panels[static_cast<std::size_t>(other)].IsConfigured();
  };
  for (int above = id + 1; above <= kHighestPanelId; ++above) {
    if (is_configured(above)) return above;
  }
  for (int below = id - 1; below >= 0; --below) {
    if (is_configured(below)) return below;
  }
  return std::nullopt;
}

PanelBoxes ConfigurationDraft::Boxes(int id) const {
  const PanelEntry& entry = values_.panels[static_cast<std::size_t>(id)];
  PanelBoxes boxes;
  boxes.id = QString::number(id);
  boxes.rows = BoxText(entry.rows, 1, kMaxRows);
  boxes.columns = BoxText(entry.columns, 1, kMostColumns);
  boxes.colour_type = entry.colour_type;
  if (!entry.address.contains('.')) return boxes;  // it is never used as an address
  const qsizetype colon = entry.address.indexOf(':');
  const auto text = [](QByteArrayView bytes) {
    return CodePage::System().ToText(TrimBlanks(bytes));
  };
  boxes.address = text(colon < 0 ? entry.address : entry.address.first(colon));
  if (colon >= 0) boxes.port = text(entry.address.sliced(colon + 1));
  return boxes;
}

void ConfigurationDraft::Apply(IniFile& file) const {
  const Configuration written = ReadConfiguration(file);
  for (int id = 0; id < kPanelIds; ++id) {
    const auto slot = static_cast<std::size_t>(id);
    const PanelEntry& entry = values_.panels[slot];
    const QByteArray key = PanelKey(id);
    if (!entry.IsConfigured()) {
      if (loaded_.panels[slot].IsConfigured()) file.RemoveKey(kDimensionSection, key);
    } else if (!(entry == written.panels[slot])) {
      file.SetValue(kDimensionSection, key, PanelValue(entry));
    }
  }
  WriteNumber(file, "Baudrate", values_.baud_rate, written.baud_rate);
  WriteNumber(file, "ComPort", values_.com_port, written.com_port);
  if (values_.Mode() != SendMode::kNone &&
      file.Value(kCommunicationSection, "SendMode") != values_.send_mode) {
    file.SetValue(kCommunicationSection, "SendMode", values_.send_mode);
  }
}

ConfigurationDraft ConfigurationDraft::ChangesOf(const IniFile& file) const {
  const Configuration now = ReadConfiguration(file);
  ConfigurationDraft changes(*this);
  for (std::size_t slot = 0; slot < loaded_.panels.size(); ++slot) {
    const PanelEntry& loaded = loaded_.panels[slot];
    const PanelEntry& value = values_.panels[slot];
    const bool is_no_panel = !loaded.IsConfigured() && !value.IsConfigured();
    if (is_no_panel || value == loaded) {
      changes.values_.panels[slot] = changes.loaded_.panels[slot] = now.panels[slot];
    }
  }
  const auto take_over = [&](QByteArrayView key, auto Configuration::*setting) {
    const bool is_there = file.Value(kCommunicationSection, key).has_value();
    if (is_there && values_.*setting == loaded_.*setting) {
      changes.values_.*setting = now.*setting;
    }
  };
  take_over("SendMode", &Configuration::send_mode);
  take_over("Baudrate", &Configuration::baud_rate);
  take_over("ComPort", &Configuration::com_port);
  return changes;
}

SaveResult ConfigurationDraft::Save(QString* reason, const LockWait& wait) const {
  const auto refuse = [reason](const QString& why, SaveResult result = SaveResult::kInvalidPath) {
    if (reason != nullptr) *reason = why;
    return result;
  };
  const QString path = ConfigurationPath();
  FileLock lock(path);
  // A save that is sure to be refused tells why.
  if (!lock.Take(wait) && MayBeSaved(path)) {
    return refuse(u"Another program is saving it."_s, SaveResult::kLocked);
  }
  std::optional<IniFile> file = IniFile::Read(path);
  if (!file) return refuse(u"The file cannot be read."_s);
  if (file->HasSection(kDimensionSection) || file->HasSection(kCommunicationSection)) {
    ChangesOf(*file).Apply(*file);
  } else {
    Apply(*file);  // all of it: nobody has taken single panels out of a file that is gone or empty
  }
  const QByteArray content = file->Content();
  if (content.size() > kLargestIniFile) return refuse(u"The file would be too large."_s);
  const SaveResult result = SaveWholeFile(path, content, reason);
  if (result == SaveResult::kSaved) LoadConfiguration();
  return result;
}

}  // namespace Brivon1
