#include "panel_line/panel_connection.h"

#include "base/code_page.h"
#include "language/further_texts.h"
#include "panel_line/links.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

bool PanelConnection::Open(SendMode mode, const Configuration& configuration,
                           const TcpEndpoint& endpoint) {
  failure_reason_.clear();
  bool is_open = false;
  if (mode == SendMode::kSerial) {
    link_ = &ports_.serial;
    is_open = OpenSerialPort(ports_.serial, configuration);
  } else if (mode == SendMode::kTcp && endpoint.IsUsable()) {
    link_ = &ports_.tcp;
    is_open = OpenTcpLink(ports_.tcp, ports_.clock, CodePage::System().ToText(endpoint.host),
                          endpoint.port, ports_.timer.stop);
  } else {
    failure_reason_ =
        ModuleLanguage::TranslateText(u"No usable network address is configured for this panel."_s);
    return false;
  }
  if (!is_open) {
    failure_reason_ = link_->FailureReason();
    link_->Close();
  }
  return is_open;
}

void PanelConnection::Close(const std::function<void(qint64 milliseconds)>& left) {
  ports_.timer.Disable();
  CloseSerialPort(ports_.serial, ports_.clock, ports_.timer.stop, left);
  CloseTcpLink(ports_.tcp, ports_.clock, ports_.timer.stop, left);
}

}  // namespace Brivon1
