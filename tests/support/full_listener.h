// A machine that takes no connection now: its port listens, but its queue is full, so that a
// request stays without an answer as it does at a panel that is slow to accept.
#pragma once

#include <QtGlobal>

class FullListener {
 public:
  /// `port` on loopback is free.
  explicit FullListener(quint16 port);
  ~FullListener();

  FullListener(const FullListener&) = delete;
  FullListener& operator=(const FullListener&) = delete;

 private:
  qintptr listener_;
  qintptr guest_;  // the one that fills it
};
