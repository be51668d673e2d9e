// Panel list lines: any line gives an entry within its bounds, and what a line was made of is what
// is read from it.
#include "base/text.h"
#include "config/configuration_draft.h"
#include "fuzz/must.h"
#include "fuzz/targets.h"
#include "language/further_texts.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace Fuzz {
namespace {

using Brivon1::PanelEntry;
using Brivon1::TcpEndpoint;

void MustBeAnEndpoint(const TcpEndpoint& endpoint, const QByteArray& source) {
  Must(endpoint.port >= 0 && endpoint.port <= Brivon1::kHighestTcpPort, "ports 0 to 65535");
  Must(!endpoint.host.contains(':'), "a host ends before its port");
  Must(Brivon1::TrimBlanks(endpoint.host) == endpoint.host, "no blanks around a host");
  Must(source.contains(endpoint.host), "a host stands in the line");
}

void MustBeAnEntry(const Brivon1::PanelListEntry& entry, const QByteArray& line) {
  Must(entry.id >= 0 && entry.id < Brivon1::kPanelIds, "IDs 0 to 255");
  MustBeAnEndpoint(entry.endpoint, line);
}

/// The bytes as a value of "brivon.ini".
void MustComeBack(const QByteArray& value, int id) {
  const PanelEntry panel = Brivon1::ReadPanelEntry(value);
  Must(panel.rows >= 0 && panel.columns >= 0 && panel.columns <= 999, "rows and columns");
  Must(panel.colour_type == Brivon1::kMono || panel.colour_type == Brivon1::kTri, "two colours");
  Must(value.contains(panel.address), "an address stands in the value");
  Must(Brivon1::ReadPanelEntry(Brivon1::PanelValue(panel)) == panel,
       "a panel that is written is read as the same");

  const QByteArray line = Brivon1::PanelListLine(id, panel);
  const Brivon1::PanelListEntry entry = Brivon1::ReadPanelListLine(line);
  MustBeAnEntry(entry, line);
  Must(entry.id == id, "the ID comes back");
  Must(entry.rows == panel.rows && entry.columns == panel.columns, "the size comes back");
  const TcpEndpoint endpoint = Brivon1::ReadEndpoint(panel.address);
  Must(entry.endpoint.host == endpoint.host && entry.endpoint.port == endpoint.port,
       "the endpoint is that of the address");

  const QByteArray short_line = Brivon1::ShortPanelListLine(id, panel);
  Must(line.startsWith(short_line), "the short line begins the whole one");
  const Brivon1::PanelListEntry without = Brivon1::ReadPanelListLine(short_line);
  Must(without.id == id && without.rows == panel.rows && without.columns == panel.columns,
       "a short line says the same of the panel");
  Must(!without.endpoint.IsUsable(), "a short line has no address");
  Must(ModuleLanguage::ShownPanelLines({line}).first().size() == line.size(),
       "a line is shown letter by letter");
}

}  // namespace

void CheckPanelList(const QByteArray& input) {
  MustBeAnEntry(Brivon1::ReadPanelListLine(input), input);
  MustBeAnEndpoint(Brivon1::ReadEndpoint(input), input);
  const int id = input.isEmpty() ? 0 : static_cast<unsigned char>(input.front());
  MustComeBack(input.mid(1), id);
  MustComeBack(input.mid(1).left(Brivon1::kLongestPanelValue), id);
}

}  // namespace Fuzz
