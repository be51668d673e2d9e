// The record of which panels exist and how the PC reaches them, loaded from "brivon.ini" in the
// program's folder. Every window that lists panels or opens a link reads it.
#pragma once

#include <array>
#include <map>
#include <optional>

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include "store/ini_file.h"
#include "store/program_folder.h"

namespace Brivon1 {

inline constexpr int kPanelIds = 256;
inline constexpr int kMaxRows = 12;

/// The sections of "brivon.ini" that the store and the configuration dialog share.
inline constexpr QByteArrayView kDimensionSection = "Dimension Config";
inline constexpr QByteArrayView kCommunicationSection = "Communication";

/// The longest "Delay Period", in milliseconds: the counters of a tick timer stop here, and a pause
/// must end.
inline constexpr qint16 kLongestDelayPeriod = 30000;

/// At most this many bytes of a panel's value are read.
inline constexpr qsizetype kLongestPanelValue = 34;

enum ColourType : qint16 { kMono = 0, kTri = 1 };

/// One entry of the panel table.
struct PanelEntry {
  qint16 rows = 0;         ///< Text lines; 0 means that no panel has this ID.
  qint16 columns = 0;      ///< Dot columns.
  qint16 colour_type = 0;  ///< kMono or kTri.
  QByteArray address;      ///< `host:port`; a colour word where none was stored.

  bool IsConfigured() const { return rows != 0 && columns != 0; }
  bool operator==(const PanelEntry&) const = default;
};

enum class SendMode { kNone, kSerial, kTcp };

struct Configuration {
  std::array<PanelEntry, kPanelIds> panels;  ///< Indexed by panel ID.
  QByteArray send_mode;                      ///< "RS232", "TCPIP" or anything else of 5 characters.
  int baud_rate = 0;
  qint16 com_port = 0;                       ///< Serial port number; port 2 is the second port.
  std::optional<bool> dtr;                   ///< That port's DTR; nothing: as the system sets it.
  std::optional<bool> rts;                   ///< The same for RTS.
  qint16 delay_period = 0;                   ///< Milliseconds, 0 to kLongestDelayPeriod.
  int code_page = 0;                         ///< As it is named; 0 where it is not.
  std::map<int, QByteArray> serial_devices;  ///< Devices named for a port number.

  SendMode Mode() const;
};

/// What the file says. Whatever is missing has its default, nothing is reported.
Configuration ReadConfiguration(const IniFile& file);

/// The entry that a value such as `16x128,Tri,192.168.0.20:80` describes.
PanelEntry ReadPanelEntry(QByteArrayView value);

/// The key of a panel in section "Dimension Config", "ID000" to "ID255".
QByteArray PanelKey(int id);

/// The system's device for a serial port number: the one named in section "Serial Ports" of
/// "brivon.ini", else the system's own ("COM2" or "/dev/ttyS1" for port 2).
QString SerialDevice(const Configuration& configuration, int port);

/// Fills the store from "brivon.ini" in the program's folder. A missing file or key yields the
/// defaults.
void LoadConfiguration();

/// The store, as the last LoadConfiguration() left it; empty before the first.
const Configuration& Store();

/// The full path of "brivon.ini".
QString ConfigurationPath();

}  // namespace Brivon1
