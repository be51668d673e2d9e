#include "panel_line/links.h"

#include "panel_line/waits.h"

namespace Brivon1 {

QByteArray SerialSettings(int baud_rate) { return QByteArray::number(baud_rate) + ",N,8,1"; }

bool OpenSerialPort(SerialPort& port, const Configuration& configuration) {
  if (!port.Open(SerialDevice(configuration, configuration.com_port),
                 SerialSettings(configuration.baud_rate))) {
    return false;
  }
  if (configuration.dtr) port.SetDtr(*configuration.dtr);
  if (configuration.rts) port.SetRts(*configuration.rts);
  return true;
}

bool CloseSerialPort(SerialPort& port, MillisecondClock& clock, const StopRequest& stop,
                     const std::function<void(qint64 milliseconds)>& left) {
  DrainLink(port, clock, stop, left);
  port.Close();
  return true;
}

bool OpenTcpLink(TcpSocket& socket, MillisecondClock& clock, const QString& host, int port,
                 const StopRequest& stop) {
  socket.Connect(host, port);
  return WaitMilliseconds(clock, kConnectTime, stop) && socket.IsConnected();
}

bool CloseTcpLink(TcpSocket& socket, MillisecondClock& clock, const StopRequest& stop,
                  const std::function<void(qint64 milliseconds)>& left) {
  DrainLink(socket, clock, stop, left);
  socket.Close();
  return true;
}

}  // namespace Brivon1
