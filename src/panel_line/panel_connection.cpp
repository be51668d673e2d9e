#include "panel_line/panel_connection.h"

#include "base/code_page.h"
#include "language/further_texts.h"
#include "panel_line/links.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

PanelConnection::PanelConnection(QObject* parent)
    : QObject(parent), timer_(this, waiter_), clock_(waiter_), serial_(this), tcp_(this) {
  connect(&serial_, &SerialLink::Happened, this, [this] { waiter_.Wake(); });
  connect(&tcp_, &TcpLink::Happened, this, [this] { waiter_.Wake(); });
}

bool PanelConnection::Open(SendMode mode, const Configuration& configuration,
                           const TcpEndpoint& endpoint) {
  failure_reason_.clear();
  bool is_open = false;
  if (mode == SendMode::kSerial) {
    link_ = &serial_;
    is_open = OpenSerialPort(serial_, configuration);
  } else if (mode == SendMode::kTcp && endpoint.IsUsable()) {
    link_ = &tcp_;
    is_open = OpenTcpLink(tcp_, clock_, CodePage::System().ToText(endpoint.host), endpoint.port);
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

void PanelConnection::Close() {
  timer_.Disable();
  CloseSerialPort(serial_, clock_);
  CloseTcpLink(tcp_, clock_);
}

}  // namespace Brivon1
