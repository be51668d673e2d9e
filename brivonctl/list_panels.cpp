#include "brivonctl/list_panels.h"

#include <QByteArrayList>
#include <QDir>

#include "base/code_page.h"
#include "orders/order.h"
#include "reports/json_events.h"
#include "reports/terminal.h"
#include "sending/sending_words.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"
#include "store/program_folder.h"
#include "usage/exit_status.h"
#include "usage/json_line.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

using Brivon1::Configuration;
using Brivon1::PanelEntry;
using Brivon1::SendMode;

/// The address that the panel is reached by over TCP, or an empty text.
QString AddressOf(const PanelEntry& panel) {
  const Brivon1::TcpEndpoint endpoint = Brivon1::ReadEndpoint(panel.address);
  if (!endpoint.IsUsable()) return {};
  return u"%1:%2"_s.arg(Brivon1::CodePage::System().ToText(endpoint.host)).arg(endpoint.port);
}

QString ColourName(const PanelEntry& panel) {
  return panel.colour_type == Brivon1::kTri ? u"tri"_s : u"mono"_s;
}

QString LinkText(const Configuration& configuration) {
  switch (configuration.Mode()) {
    case SendMode::kSerial:
      return u"link: serial, %1, %2 baud"_s
          .arg(Brivon1::SerialDevice(configuration, configuration.com_port))
          .arg(configuration.baud_rate);
    case SendMode::kTcp:
      return u"link: TCP/IP"_s;
    case SendMode::kNone:
      break;
  }
  return u"link: none; "_s + Brivon1::LinkNote(configuration);
}

void PrintTable(const Configuration& configuration) {
  QString text;
  for (int id = 0; id < Brivon1::kPanelIds; ++id) {
    const PanelEntry& panel = configuration.panels[static_cast<std::size_t>(id)];
    if (!panel.IsConfigured()) continue;
    const QString size = u"%1x%2"_s.arg(panel.rows).arg(panel.columns);
    const QString address = AddressOf(panel);
    text += PanelName(id) + u"  "_s + size.leftJustified(8) + u' ' +
            ColourName(panel).leftJustified(5) +
            (address.isEmpty() ? u"no address"_s : Harmless(address)) + u'\n';
  }
  if (text.isEmpty()) text = u"no panel is configured\n"_s;
  PrintText(Stream::kOutput,
            u"folder: "_s + Harmless(QDir::toNativeSeparators(Brivon1::ProgramFolder())) + u'\n' +
                Harmless(LinkText(configuration)) +
                u", delay period %1 ms\n"_s.arg(configuration.delay_period) + text);
}

void PrintEvents(const Configuration& configuration) {
  JsonLine link;
  link.Add("event", u"start"_s).Add("version", kJsonVersion).Add("action", u"list"_s);
  link.Add("folder", QDir::toNativeSeparators(Brivon1::ProgramFolder()));
  link.Add("link", ModeName(configuration.Mode()));
  link.Add("device", Brivon1::SerialDevice(configuration, configuration.com_port));
  link.Add("baud_rate", configuration.baud_rate).Add("delay_period", configuration.delay_period);
  QByteArray lines = link.Text() + '\n';
  int count = 0;
  for (int id = 0; id < Brivon1::kPanelIds; ++id) {
    const PanelEntry& panel = configuration.panels[static_cast<std::size_t>(id)];
    if (!panel.IsConfigured()) continue;
    ++count;
    JsonLine line;
    line.Add("event", u"configured"_s).Add("panel", id);
    line.Add("rows", panel.rows).Add("columns", panel.columns).Add("colours", ColourName(panel));
    lines += line.Add("address", AddressOf(panel)).Text() + '\n';
  }
  JsonLine summary;
  summary.Add("event", u"summary"_s).Add("panels", count).Add("status", int{kAllDone});
  Print(Stream::kOutput, lines + summary.Text() + '\n');
}

}  // namespace

int ListPanels(const ListOptions& options) {
  const QString wrong = UseFolder(options.folder, true);
  if (!wrong.isEmpty()) {
    Complain(wrong);
    return kRefused;
  }
  if (options.is_json) {
    PrintEvents(Brivon1::Store());
  } else {
    PrintTable(Brivon1::Store());
  }
  return IsOutputWhole() ? kAllDone : kSomeFailed;
}

}  // namespace BrivonCtl
