// The line that every ID list shows for a configured panel, built and taken apart here.
#pragma once

#include <QByteArray>
#include <QList>

#include "store/configuration_store.h"

namespace Brivon1 {

/// "ID" + three digits, rows "x" columns, "Mono-Color" or "Tri-Color" and the address, five blanks
/// between them: `ID012     16x128     Tri-Color     192.168.0.12:80`.
QByteArray PanelListLine(int id, const PanelEntry& entry);

/// The same line up to the panel's colours, for a list of panels that are reached without their
/// address: `ID012     16x128     Tri-Color`.
QByteArray ShortPanelListLine(int id, const PanelEntry& entry);

/// One line for each configured panel, in ascending ID order, made by `line`.
QList<QByteArray> PanelListLines(const Configuration& configuration,
                                 QByteArray (*line)(int id,
                                                    const PanelEntry& entry) = PanelListLine);

/// The TCP port of an address that names none, and the highest that there is.
inline constexpr int kDefaultTcpPort = 80;
inline constexpr int kHighestTcpPort = 65535;

/// Where a panel is reached over TCP/IP.
struct TcpEndpoint {
  QByteArray host;
  int port = 0;  ///< 1 to kHighestTcpPort; 0 in an unusable endpoint.

  bool IsUsable() const { return !host.isEmpty() && port != 0; }
};

/// What a panel list line says.
struct PanelListEntry {
  int id = 0;
  qint16 rows = 0;
  qint16 columns = 0;
  TcpEndpoint endpoint;
};

/// The endpoint that a panel's address, or a line that ends with it, names. It is read from three
/// characters before the text's first "." to its end: the host before the first ":", the port
/// behind it, kDefaultTcpPort without one. A text without a ".", or with a port outside 1 to
/// kHighestTcpPort, yields an unusable endpoint.
TcpEndpoint ReadEndpoint(const QByteArray& text);

/// Takes a line of PanelListLine() or ShortPanelListLine() apart, its endpoint as ReadEndpoint()
/// does.
PanelListEntry ReadPanelListLine(const QByteArray& line);

}  // namespace Brivon1
