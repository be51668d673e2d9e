#include "lines/panel_lines.h"

#include <utility>

#include "lines/serial_line.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

// After a while somebody plugs in again what a fault has pulled.
constexpr int kReplugMs = 1000;

// "ADDRESS:PORT", "[ADDRESS]:PORT" or "PORT".
bool ParseAddress(const QString& text, QHostAddress* address, quint16* port) {
  const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
  QString host = colon < 0 ? u"127.0.0.1"_s : text.left(colon);
  if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']'))) {
    host = host.mid(1, host.size() - 2);
  }
  if (host == "localhost"_L1) host = u"127.0.0.1"_s;
  bool is_number = false;
  *port = text.mid(colon + 1).toUShort(&is_number);
  return is_number && address->setAddress(host);
}

QString HostText(const QHostAddress& address) {
  return address.protocol() == QAbstractSocket::IPv6Protocol
             ? QLatin1Char('[') + address.toString() + QLatin1Char(']')
             : address.toString();
}

}  // namespace

PanelLines::PanelLines(PanelEngine* engine, QObject* parent) : QObject(parent), engine_(engine) {}

PanelLines::~PanelLines() = default;

bool PanelLines::OpenTcp(const QString& address, QString* error) {
  QHostAddress host;
  quint16 port = 0;
  if (!ParseAddress(address, &host, &port)) {
    *error = u"TCP address \"%1\": expected ADDRESS:PORT or PORT"_s.arg(address);
    return false;
  }
  if (!is_exposed_ && !host.isLoopback()) {
    *error =
        u"TCP address \"%1\": other machines could reach it; with --expose they may"_s.arg(address);
    return false;
  }
  auto line = std::make_unique<Line>();
  auto tcp = std::make_unique<TcpLine>(engine_);
  tcp->SetMostConnections(most_connections_);
  line->open = [line = line.get(), tcp = tcp.get(), address, host, port](QString* reason) mutable {
    if (!tcp->Listen(host, port)) {
      *reason = u"TCP address \"%1\": %2"_s.arg(address, tcp->ErrorString());
      return false;
    }
    port = tcp->Port();  // whichever was free remains the same
    line->name = u"tcp %1:%2"_s.arg(HostText(host)).arg(port);
    return true;
  };
  line->cut = [tcp = tcp.get()] { tcp->Close(); };
  line->is_open = [tcp = tcp.get()] { return tcp->Port() != 0; };
  line->open_description = [line = line.get()] { return u"listening on "_s + line->name; };
  line->line = std::move(tcp);
  return Add(std::move(line), error);
}

bool PanelLines::OpenSerial(const QString& device, qint32 baud_rate, QString* error) {
  auto line = std::make_unique<Line>();
  auto serial = std::make_unique<SerialLine>(engine_);
  line->open = [serial = serial.get(), device, baud_rate](QString* reason) {
    if (serial->Open(device, baud_rate)) return true;
    *reason = u"serial port %1: %2"_s.arg(device, serial->ErrorString());
    return false;
  };
  line->cut = [serial = serial.get()] { serial->Unplug(); };
  line->is_open = [serial = serial.get()] { return serial->IsOpen(); };
  line->name = u"serial %1 at %2 baud"_s.arg(device).arg(baud_rate);
  line->open_description = [line = line.get()] { return line->name; };
  connect(serial.get(), &SerialLine::Unplugged, &line->again,
          [this, line = line.get(), device](const QString& reason) {
            if (!is_plugged_) return;
            Q_EMIT Failed(u"serial port %1: %2"_s.arg(device, reason));
            Q_EMIT Closed(Description(*line));
            line->again.start();
          });
  line->line = std::move(serial);
  return Add(std::move(line), error);
}

bool PanelLines::Add(std::unique_ptr<Line> line, QString* error) {
  if (!line->open(error)) return false;
  line->again.setObjectName(u"again"_s);
  line->again.setParent(this);
  line->again.setInterval(kReplugMs);
  line->again.setSingleShot(true);
  connect(&line->again, &QTimer::timeout, this, [this, line = line.get()] { Reopen(line); });
  const QString description = Description(*line);
  lines_.push_back(std::move(line));
  Q_EMIT Opened(description);
  return true;
}

QString PanelLines::Description(const Line& line) {
  if (line.is_open()) return line.open_description();
  return line.name + (line.failure.isEmpty() ? u" unplugged"_s : u" cannot be opened"_s);
}

QStringList PanelLines::Descriptions() const {
  QStringList descriptions;
  for (const auto& line : lines_) descriptions.append(Description(*line));
  return descriptions;
}

void PanelLines::SetPlugged(bool plugged) {
  if (plugged == is_plugged_) return;
  is_plugged_ = plugged;
  for (const auto& line : lines_) {
    if (plugged) {
      Reopen(line.get());
    } else {
      const QString before = Description(*line);
      line->again.stop();
      line->failure.clear();
      line->cut();
      if (const QString now = Description(*line); now != before) Q_EMIT Closed(now);
    }
  }
}

void PanelLines::Reopen(Line* line) {
  QString reason;
  if (line->open(&reason)) {
    line->again.stop();
    line->failure.clear();
    Q_EMIT Opened(Description(*line));
    return;
  }
  line->again.start();
  // Said once, however often it is tried.
  if (reason != std::exchange(line->failure, reason)) Q_EMIT Failed(reason);
}

}  // namespace VirtualPanel
