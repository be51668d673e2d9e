// The lines on which the panels are reached, by their names on the command line. A line that is
// lost is opened again as soon as it can be; all of them can be unplugged and plugged in.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QObject>
#include <QStringList>
#include <QTimer>

#include "engine/panel_engine.h"
#include "lines/tcp_line.h"

namespace VirtualPanel {

class PanelLines : public QObject {
  Q_OBJECT

 public:
  // The engine must outlive the lines.
  explicit PanelLines(PanelEngine* engine, QObject* parent = nullptr);
  ~PanelLines() override;

  // Whether a TCP line may be reached from other machines; without it they are refused.
  void SetExposed(bool exposed) { is_exposed_ = exposed; }
  // How many connections each TCP line that is opened from now on takes.
  void SetMostConnections(int count) { most_connections_ = count; }

  // Each opens one more line. False, with a sentence in *error: it cannot be opened.
  // `address` is "ADDRESS:PORT", "[ADDRESS]:PORT" or "PORT"; port 0 takes any free one.
  bool OpenTcp(const QString& address, QString* error);
  // `link` becomes a symbolic link to a new pseudo-terminal. Windows has none.
  bool OpenPty(const QString& link, QString* error);
  bool OpenSerial(const QString& device, qint32 baud_rate, QString* error);

  // Where the panels are reached, one text for each line, or that it is unplugged or cannot be
  // opened.
  QStringList Descriptions() const;

  // Unplugged, nobody can connect, and every connection is cut. Plugged in again, each line has its
  // old address and its pseudo-terminal its old link.
  void SetPlugged(bool plugged);
  bool IsPlugged() const { return is_plugged_; }

 Q_SIGNALS:
  void Opened(const QString& description);
  void Closed(const QString& description);
  void Failed(const QString& reason);

 private:
  struct Line {
    std::unique_ptr<QObject> line;
    std::function<bool(QString* error)> open;
    std::function<void()> cut;
    std::function<bool()> is_open;
    std::function<QString()> open_description;
    QString name;
    QTimer again;
    QString failure;  // of the last attempt to open it again
  };

  bool Add(std::unique_ptr<Line> line, QString* error);
  void Reopen(Line* line);
  static QString Description(const Line& line);

  PanelEngine* engine_;
  std::vector<std::unique_ptr<Line>> lines_;
  bool is_plugged_ = true;
  bool is_exposed_ = false;
  int most_connections_ = TcpLine::kMostConnections;
};

}  // namespace VirtualPanel
