#include "store/panel_list.h"

#include <algorithm>

#include "base/text.h"

namespace Brivon1 {
namespace {

constexpr const char* kGap = "     ";
constexpr qsizetype kIdAt = 2;
constexpr qsizetype kIdDigits = 3;
constexpr qsizetype kBeforeFirstPoint = 3;

}  // namespace

QByteArray PanelListLine(int id, const PanelEntry& entry) {
  return ShortPanelListLine(id, entry) + kGap + entry.address;
}

QByteArray ShortPanelListLine(int id, const PanelEntry& entry) {
  return "ID" + ZeroPadded(id, 3) + kGap + QByteArray::number(entry.rows) + 'x' +
         QByteArray::number(entry.columns) + kGap +
         (entry.colour_type == kTri ? "Tri-Color" : "Mono-Color");
}

QList<QByteArray> PanelListLines(const Configuration& configuration,
                                 QByteArray (*line)(int id, const PanelEntry& entry)) {
  QList<QByteArray> lines;
  for (int id = 0; id < kPanelIds; ++id) {
    const PanelEntry& entry = configuration.panels[static_cast<std::size_t>(id)];
    if (entry.IsConfigured()) lines.append(line(id, entry));
  }
  return lines;
}

TcpEndpoint ReadEndpoint(const QByteArray& text) {
  const qsizetype point = text.indexOf('.');
  if (point < 0) return {};
  const QByteArray address =
      TrimBlanks(text.mid(std::max<qsizetype>(point - kBeforeFirstPoint, 0)));
  const qsizetype colon = address.indexOf(':');
  if (colon < 0) return {address, kDefaultTcpPort};
  const int port = LeadingNumber(address.mid(colon + 1), -1, kHighestTcpPort + 1);
  return {TrimBlanks(address.first(colon)), port < 1 || port > kHighestTcpPort ? 0 : port};
}

PanelListEntry ReadPanelListLine(const QByteArray& line) {
  PanelListEntry entry;
  entry.id = LeadingNumber(line.mid(kIdAt, kIdDigits), 0, kPanelIds - 1);
  // The dimension stands behind the ID, so the "x" is the first one of the line.
  const qsizetype x = line.indexOf('x');
  if (x >= kIdAt + kIdDigits) {
    entry.rows = LeadingNumber16(line.mid(kIdAt + kIdDigits, x - kIdAt - kIdDigits));
    entry.columns = LeadingNumber16(line.mid(x + 1));
  }
  entry.endpoint = ReadEndpoint(line);
  return entry;
}

}  // namespace Brivon1
