// A serial port with a thread of its own that sleeps until something arrives, carried by
// Boost.Asio. Knows nothing of the toolkit. Everything but the telling is called from one other
// thread, which never waits for the line.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace Ports {

class AsyncPort {
 public:
  /// What has happened since it was last asked for.
  struct News {
    bool has_input = false;  ///< Bytes have arrived that nobody has read.
    bool has_left = false;   ///< The system has taken some of the bytes that waited.
  };

  /// `tell` is called in the port's thread when there is news, once until TakeNews(), and never
  /// after Close(). Where `most_held` bytes have arrived and nobody reads, no more are taken in.
  AsyncPort(std::function<void()> tell, std::size_t most_held);
  ~AsyncPort();
  AsyncPort(const AsyncPort&) = delete;
  AsyncPort& operator=(const AsyncPort&) = delete;

  /// False, with the reason in Reason(), if it fails; the port is closed then.
  bool Open(const std::string& name, unsigned baud_rate);
  bool IsOpen() const { return core_ != nullptr; }
  /// True once the port is gone, until it is closed.
  bool IsLost() const;
  /// Why the port could not be opened or was lost, in the system's words and encoding.
  std::string Reason() const;

  /// Hands what still waits to the system, too.
  News TakeNews();
  void SetDtr(bool raised);
  void SetRts(bool raised);
  void Write(const char* bytes, std::size_t size);
  std::size_t Waiting() const;
  std::size_t Unsent() const;
  void Discard();
  std::string Read(int wait);
  void Close();

 private:
  struct Core;

  const std::function<void()> tell_;
  const std::size_t most_held_;
  std::shared_ptr<Core> core_;  // shared with the thread, which may outlive a port that hangs
  std::thread thread_;
  std::string reason_;
};

}  // namespace Ports
