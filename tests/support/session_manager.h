// A desktop of a test's own: an X server without a screen, and a session manager that asks the
// test's program whether the session may end, as at log-out.
#pragma once

#include <sys/types.h>

#include <QByteArray>

/// Both are to be made before the application; they end with this process.
class XServer {
 public:
  /// Starts the server and makes it the display of this process.
  XServer();
  ~XServer();

  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

 private:
  pid_t process_;
};

class SessionManager {
 public:
  /// Starts the session manager and makes it the one of this process.
  SessionManager();
  ~SessionManager();

  SessionManager(const SessionManager&) = delete;
  SessionManager& operator=(const SessionManager&) = delete;

  enum class Questions { kAllowed, kNotAllowed };

  /// Asks the program whether the session may end, and waits for its answer, during which events
  /// are processed. What it said, a word each: "question" (it wants to ask its user, and may),
  /// "asked", "cancelled" (by its user) and last "ready" or "failed".
  QByteArray AskToEnd(Questions questions);

  /// Sends the program home.
  void End();

  /// The session goes on, because another program wants it.
  void GoOn();

 private:
  void Send(char order) const;

  int control_;
  pid_t process_;
};
