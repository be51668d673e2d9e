// One open connection with the panels: hands what arrives to the engine and carries its answers out
// at their time, in their order. What the other end does not read is bounded.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QQueue>
#include <QTimer>

#include "engine/panel_engine.h"

namespace VirtualPanel {

// The way out of a connection, as a line provides it.
class Outlet {
 public:
  Outlet() = default;
  Outlet(const Outlet&) = delete;
  Outlet& operator=(const Outlet&) = delete;
  virtual ~Outlet() = default;

  virtual void Send(const QByteArray& bytes) = 0;
  // Bytes that were sent and have not left the program yet.
  virtual qint64 Unsent() const = 0;
  // Cuts the connection once what was sent has gone.
  virtual void HangUp() = 0;
};

class Conversation : public QObject {
  Q_OBJECT

 public:
  // What is held for an other end that does not read; an answer beyond it is lost, as on a real
  // line.
  static constexpr qint64 kMostUnsent = 262'144;
  static constexpr qsizetype kMostWaitingSteps = 10'000;

  // The engine and the outlet must outlive the conversation.
  Conversation(PanelEngine* engine, QString line, Outlet* outlet, QObject* parent = nullptr);

  void Receive(QByteArrayView bytes);
  // To be called when bytes have left: a flood goes on.
  void BytesHaveLeft();
  // The bytes that are kept for the other end: of a frame without an end, of answers that are still
  // to come or have not left.
  qint64 Held() const;
  // Forgets the answers that are still to come and the frame that is half received.
  void Reset();

 private:
  struct Step {
    Answer answer;
    qint64 due = 0;
  };

  void Play();
  void Flood();
  bool IsFloodNext() const;

  PanelEngine* engine_;
  QString line_;
  Outlet* outlet_;
  FrameSplitter splitter_;
  QElapsedTimer clock_;
  QQueue<Step> steps_;
  QTimer timer_;
  bool flooding_ = false;
  qint64 flooded_ = 0;  // since the flood has rested last
  QTimer flood_rest_;
  bool hung_up_ = false;
};

}  // namespace VirtualPanel
