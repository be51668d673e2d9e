#include "ports/async_port.h"

#include <array>
#include <boost/asio/error.hpp>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/system/system_error.hpp>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <system_error>
#include <utility>

#include "ports/asio_system.h"

namespace Ports {
namespace {

using boost::system::error_code;
using std::chrono::milliseconds;
using Lock = std::unique_lock<std::mutex>;

// The port's thread answers within microseconds, unless the system holds it.
constexpr milliseconds kLongestAnswer{100};
constexpr milliseconds kLongestClosing{2000};

}  // namespace

// What both threads work on. `mutex` guards all of it; each handler takes it.
struct AsyncPort::Core {
  Core(std::function<void()> teller, std::size_t most) : tell(std::move(teller)), most_held(most) {}

  void StartReading(const std::shared_ptr<Core>& self);
  void StartWriting(const std::shared_ptr<Core>& self);
  void TakeIn(const error_code& error, std::size_t size);
  void TakeOff(const error_code& error, std::size_t size);
  void Lose(const error_code& error);
  void Tell();
  void WaitUntilHandled(const std::shared_ptr<Core>& self, Lock& lock);
  std::size_t Waiting() const { return (is_discarding ? 0 : in_progress.size()) + waiting.size(); }

  std::function<void()> tell;
  const std::size_t most_held;

  std::mutex mutex;
  std::condition_variable changed;
  boost::asio::io_context context;
  boost::asio::executor_work_guard<boost::asio::io_context::executor_type> work{
      context.get_executor()};
  boost::asio::serial_port port{context};

  std::array<char, 4096> incoming{};
  std::string arrived;
  bool is_reading = false;
  int breaks = 0;  // reads in a row that ended without a byte and without a loss

  std::string in_progress;  // being written
  std::string waiting;
  bool is_writing = false;
  bool is_discarding = false;

  News news;
  bool is_lost = false;
  bool has_told = false;
  error_code reason;
  bool is_closing = false;
  bool has_ended = false;
  std::uint64_t questions = 0;
  std::uint64_t answers = 0;
};

void AsyncPort::Core::StartReading(const std::shared_ptr<Core>& self) {
  if (is_reading || is_closing || is_lost || arrived.size() >= most_held) return;
  is_reading = true;
  const std::size_t size_asked = ReadSize(port, incoming.size());
  port.async_read_some(boost::asio::buffer(incoming, size_asked),
                       [self](const error_code& error, std::size_t size) {
                         const Lock lock(self->mutex);
                         self->TakeIn(error, size);
                         self->StartReading(self);
                       });
}

void AsyncPort::Core::TakeIn(const error_code& error, std::size_t size) {
  constexpr int kMostBreaks = 10;
  is_reading = false;
  if (is_closing) return;
  arrived.append(incoming.data(), size);
  if (size > 0) {
    breaks = 0;
    news.has_input = true;
  } else if (!error || error == boost::asio::error::operation_aborted) {
    // Output was dropped, or the system lets a read end in its own time. A port that is gone may
    // begin in the same way.
    if (++breaks > kMostBreaks) Lose(boost::asio::error::eof);
  } else {
    Lose(error);
  }
  if (size > 0) Tell();
}

void AsyncPort::Core::StartWriting(const std::shared_ptr<Core>& self) {
  if (is_writing || is_closing || is_lost) return;
  in_progress += std::exchange(waiting, {});
  if (in_progress.empty()) return;
  is_writing = true;
  port.async_write_some(boost::asio::buffer(in_progress),
                        [self](const error_code& error, std::size_t size) {
                          const Lock lock(self->mutex);
                          self->TakeOff(error, size);
                        });
}

void AsyncPort::Core::TakeOff(const error_code& error, std::size_t size) {
  is_writing = false;
  if (is_closing) return;
  if (std::exchange(is_discarding, false)) {
    in_progress.clear();
  } else if (error) {
    Lose(error);
  } else {
    in_progress.erase(0, size);
  }
  news.has_left = true;
  Tell();
}

void AsyncPort::Core::Lose(const error_code& error) {
  if (std::exchange(is_lost, true)) return;
  reason = error;
  Tell();
}

void AsyncPort::Core::Tell() {
  changed.notify_all();
  if (!std::exchange(has_told, true) && tell) tell();
}

// Lets the port's thread finish what it had in hand.
void AsyncPort::Core::WaitUntilHandled(const std::shared_ptr<Core>& self, Lock& lock) {
  const std::uint64_t question = ++questions;
  boost::asio::post(context, [self, question] {
    const Lock handler_lock(self->mutex);
    self->answers = question;
    self->changed.notify_all();
  });
  changed.wait_for(lock, kLongestAnswer, [&] { return answers >= question; });
}

AsyncPort::AsyncPort(std::function<void()> tell, std::size_t most_held)
    : tell_(std::move(tell)), most_held_(most_held) {}

AsyncPort::~AsyncPort() { Close(); }

bool AsyncPort::Open(const std::string& name, unsigned baud_rate) {
  Close();
  reason_.clear();
  std::shared_ptr<Core> core;
  bool has_opened = false;
  try {
    core = std::make_shared<Core>(tell_, most_held_);
    const error_code error = OpenSystemPort(core->port, name, baud_rate);
    has_opened = !error;
    if (error) {
      reason_ = error.message();
      return false;
    }
    thread_ = std::thread([core] {
      core->context.run();
      const Lock lock(core->mutex);
      core->has_ended = true;
      core->changed.notify_all();
    });
  } catch (const boost::system::system_error& no_context) {  // not one of the standard library's
    reason_ = no_context.code().message();
  } catch (const std::system_error& no_thread) {
    reason_ = no_thread.code().message();
  }
  if (!thread_.joinable()) {
    if (has_opened) ReleaseSystemPort(core->port);
    return false;
  }
  core_ = std::move(core);
  const Lock lock(core_->mutex);
  core_->StartReading(core_);
  return true;
}

bool AsyncPort::IsLost() const {
  if (!core_) return false;
  const Lock lock(core_->mutex);
  return core_->is_lost;
}

std::string AsyncPort::Reason() const {
  if (!core_) return reason_;
  const Lock lock(core_->mutex);
  return core_->reason ? core_->reason.message() : std::string();
}

AsyncPort::News AsyncPort::TakeNews() {
  if (!core_) return {};
  const Lock lock(core_->mutex);
  core_->has_told = false;
  core_->StartWriting(core_);
  News news = std::exchange(core_->news, {});
  news.has_input = news.has_input && !core_->arrived.empty();
  return news;
}

void AsyncPort::SetDtr(bool raised) {
  if (!core_) return;
  const Lock lock(core_->mutex);
  SetControlLine(core_->port, ControlLine::kDtr, raised);
}

void AsyncPort::SetRts(bool raised) {
  if (!core_) return;
  const Lock lock(core_->mutex);
  SetControlLine(core_->port, ControlLine::kRts, raised);
}

void AsyncPort::Write(const char* bytes, std::size_t size) {
  if (!core_) return;
  const Lock lock(core_->mutex);
  if (core_->is_lost) return;
  core_->waiting.append(bytes, size);
  core_->StartWriting(core_);
}

std::size_t AsyncPort::Waiting() const {
  if (!core_) return 0;
  Lock lock(core_->mutex);
  if (core_->is_writing) core_->WaitUntilHandled(core_, lock);
  return core_->is_lost ? 0 : core_->Waiting();
}

std::size_t AsyncPort::Unsent() const {
  if (!core_) return 0;
  Lock lock(core_->mutex);
  // Where the system has taken all of it, that is known once it is handled.
  if (core_->is_writing) core_->WaitUntilHandled(core_, lock);
  if (core_->is_lost) return 0;
  const std::size_t in_progress = core_->is_discarding ? 0 : core_->in_progress.size();
  return BytesOnTheirWay(core_->port, in_progress) + core_->waiting.size();
}

void AsyncPort::Discard() {
  if (!core_) return;
  Lock lock(core_->mutex);
  core_->waiting.clear();
  core_->is_discarding = core_->is_writing;
  if (!core_->is_writing) core_->in_progress.clear();
  DropOutput(core_->port);
  core_->WaitUntilHandled(core_, lock);
  core_->breaks = 0;  // the read that ended with it says nothing of the port
}

std::string AsyncPort::Read(int wait) {
  constexpr int kMostLooks = 50;
  if (!core_) return {};
  Lock lock(core_->mutex);
  const auto has_come = [this] { return !core_->arrived.empty() || core_->is_lost; };
  if (wait > 0) core_->changed.wait_for(lock, milliseconds(wait), has_come);
  // What is in the system's buffer, or on its way from there, has arrived.
  for (int look = 0; look < kMostLooks && core_->is_reading; ++look) {
    const bool has_more = HasInput(core_->port);
    core_->WaitUntilHandled(core_, lock);
    if (!has_more) break;
  }
  std::string bytes = std::exchange(core_->arrived, {});
  core_->StartReading(core_);
  return bytes;
}

void AsyncPort::Close() {
  if (!core_) return;
  if (Unsent() > 0) Discard();
  const std::shared_ptr<Core> core = std::exchange(core_, nullptr);
  Lock lock(core->mutex);
  core->is_closing = true;
  core->tell = nullptr;
  // In the port's own thread, and without the mutex that is waited with below: a port may hang
  // while it is closed. Nobody else touches it any more.
  boost::asio::post(core->context, [core] {
    ReleaseSystemPort(core->port);
    error_code ignored;
    core->port.close(ignored);
    core->work.reset();
  });
  const bool has_ended =
      core->changed.wait_for(lock, kLongestClosing, [&] { return core->has_ended; });
  lock.unlock();
  if (has_ended) {
    thread_.join();
  } else {
    thread_.detach();
  }
}

}  // namespace Ports
