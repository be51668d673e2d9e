#include "store/configuration_store.h"

#include <algorithm>
#include <limits>

#include <QFile>

#include "base/text.h"
#include "store/system_port.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

constexpr QByteArrayView kSerialPortsSection = "Serial Ports";
constexpr qsizetype kSendModeLength = 5;
constexpr qsizetype kColumnDigits = 3;
constexpr int kHighestSerialPort = 16;
constexpr int kHighestNumber = std::numeric_limits<qint16>::max();

Configuration& MutableStore() {
  static Configuration store;
  return store;
}

/// The text after the first ","; the whole text where there is none.
QByteArrayView AfterComma(QByteArrayView text) { return text.sliced(text.indexOf(',') + 1); }

/// A dimension is digits alone: one with a minus sign is none.
qint16 Digits(QByteArrayView text) {
  return static_cast<qint16>(LeadingNumber(text, 0, kHighestNumber));
}

}  // namespace

SendMode Configuration::Mode() const {
  if (send_mode == "RS232") return SendMode::kSerial;
  if (send_mode == "TCPIP") return SendMode::kTcp;
  return SendMode::kNone;
}

PanelEntry ReadPanelEntry(QByteArrayView value) {
  const QByteArray trimmed = TrimBlanks(value);
  const QByteArrayView text = trimmed;
  PanelEntry entry;
  const qsizetype x = text.indexOf('x');
  if (x >= 0) {
    entry.rows = Digits(text.first(x));
    entry.columns = Digits(text.sliced(x + 1).first(std::min(kColumnDigits, text.size() - x - 1)));
  }
  // The address is what follows the second ",". A value of two fields leaves its colour word there,
  // which is harmless: an address is only used when it holds a ".".
  const QByteArrayView after_comma = text.contains(',') ? AfterComma(text) : QByteArrayView();
  entry.address = TrimBlanks(AfterComma(after_comma));
  entry.colour_type = after_comma.startsWith(QByteArrayView("Tri")) ? kTri : kMono;
  return entry;
}

QByteArray PanelKey(int id) { return "ID" + ZeroPadded(id, 3); }

Configuration ReadConfiguration(const IniFile& file) {
  Configuration configuration;
  for (int id = 0; id < kPanelIds; ++id) {
    const auto value = file.Value(kDimensionSection, PanelKey(id), kLongestPanelValue);
    configuration.panels[static_cast<std::size_t>(id)] =
        ReadPanelEntry(value.value_or("0x000,Mono"_ba));
  }
  configuration.send_mode =
      file.Value(kCommunicationSection, "SendMode", kSendModeLength).value_or(QByteArray());
  configuration.baud_rate = file.Integer(kCommunicationSection, "Baudrate", 9600);
  configuration.com_port = static_cast<qint16>(
      std::min(file.Integer(kCommunicationSection, "ComPort", 2), kHighestNumber));
  configuration.delay_period = static_cast<qint16>(std::clamp<int>(
      file.Integer(kCommunicationSection, "Delay Period", 300), 0, kLongestDelayPeriod));
  configuration.code_page = file.Integer("Files", "CodePage", 0);
  const auto read_device = [&](int port) {
    const auto device = file.Value(kSerialPortsSection, "Com" + QByteArray::number(port));
    if (device && !device->isEmpty()) configuration.serial_devices[port] = *device;
  };
  for (int port = 1; port <= kHighestSerialPort; ++port) read_device(port);
  read_device(configuration.com_port);
  const auto control_line = [&](const char* name) -> std::optional<bool> {
    const auto value =
        file.Value(kSerialPortsSection, "Com" + QByteArray::number(configuration.com_port) + name);
    if (value == "1") return true;
    if (value == "0") return false;
    return std::nullopt;
  };
  configuration.dtr = control_line("Dtr");
  configuration.rts = control_line("Rts");
  return configuration;
}

QString SerialDevice(const Configuration& configuration, int port) {
  const auto named = configuration.serial_devices.find(port);
  if (named != configuration.serial_devices.end()) return QFile::decodeName(named->second);
  return SystemPort(port);
}

void LoadConfiguration() { MutableStore() = ReadConfiguration(IniFile::Load(ConfigurationPath())); }

const Configuration& Store() { return MutableStore(); }

QString ConfigurationPath() { return InProgramFolder(u"brivon.ini"_s); }

}  // namespace Brivon1
