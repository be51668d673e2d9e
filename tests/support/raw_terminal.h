// A pseudo-terminal whose other end is the test itself, as quick or as slow as the test says.
#pragma once

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>

#include <QByteArray>
#include <QElapsedTimer>
#include <QString>
#include <QTimer>

#include <gtest/gtest.h>

class RawTerminal {
 public:
  RawTerminal() {
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) {
      qFatal("cannot open a pseudo-terminal");
    }
    device_ = QString::fromLocal8Bit(ptsname(master_));
    pace_.setInterval(5);
    pace_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pace_, &QTimer::timeout, [this] { ReadItsShare(); });
  }
  ~RawTerminal() { Unplug(); }

  RawTerminal(const RawTerminal&) = delete;
  RawTerminal& operator=(const RawTerminal&) = delete;

  /// The name under which a program opens it.
  QString Device() const { return device_; }

  /// The speed that it has been set to.
  speed_t Speed() const {
    const termios settings = Settings();
    return cfgetospeed(&settings);
  }

  /// All that it has been set to.
  termios Settings() const {
    termios settings{};
    EXPECT_EQ(tcgetattr(master_, &settings), 0);
    return settings;
  }

  void SetUp(const termios& settings) { EXPECT_EQ(tcsetattr(master_, TCSANOW, &settings), 0); }

  void Unplug() {
    pace_.stop();
    if (master_ >= 0) close(master_);
    master_ = -1;
  }

  void Send(const QByteArray& bytes) {
    ASSERT_EQ(write(master_, bytes.constData(), static_cast<std::size_t>(bytes.size())),
              bytes.size());
  }

  /// Sends as many of `bytes` as the system has room for, and returns their number.
  qsizetype SendWhatFits(const QByteArray& bytes) {
    qsizetype sent = 0;
    ssize_t size = 0;
    do {
      sent += size;
      size =
          write(master_, bytes.constData() + sent, static_cast<std::size_t>(bytes.size() - sent));
    } while (size > 0);
    return sent;
  }

  /// Reads `bytes_per_second` from now on, while events are handled.
  void ReadAt(int bytes_per_second) {
    bytes_per_second_ = bytes_per_second;
    taken_ = 0;
    since_.start();
    pace_.start();
  }

  /// Everything that it has been sent and that was read, up to now.
  const QByteArray& Received() {
    while (Read(65536)) {
    }
    return received_;
  }

 private:
  void ReadItsShare() {
    const qint64 due = since_.elapsed() * bytes_per_second_ / 1000;
    while (taken_ < due && Read(due - taken_)) {
    }
  }

  bool Read(qsizetype at_most) {
    QByteArray bytes(at_most, 0);
    const ssize_t size = read(master_, bytes.data(), static_cast<std::size_t>(at_most));
    if (size > 0) {
      received_ += bytes.first(size);
      taken_ += size;
    }
    return size > 0;
  }

  int master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
  QString device_;
  QByteArray received_;
  QTimer pace_;
  QElapsedTimer since_;
  qint64 bytes_per_second_ = 0;
  qint64 taken_ = 0;  // since ReadAt()
};
