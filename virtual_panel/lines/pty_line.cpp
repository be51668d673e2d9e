#include "lines/pty_line.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

void CloseDescriptor(int* descriptor) {
  if (*descriptor >= 0) ::close(*descriptor);
  *descriptor = -1;
}

}  // namespace

PtyLine::PtyLine(PanelEngine* engine, QObject* parent)
    : QObject(parent), conversation_(engine, u"pty"_s, this) {}

PtyLine::~PtyLine() {
  disconnect();
  Unplug();
}

bool PtyLine::Open(const QString& link) {
  Unplug();
  error_.clear();
  master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (master_ < 0) return Fail(u"no pseudo-terminal"_s);
  std::array<char, 128> name{};
  if (::grantpt(master_) != 0 || ::unlockpt(master_) != 0 ||
      ::ptsname_r(master_, name.data(), name.size()) != 0) {
    return Fail(u"no pseudo-terminal"_s);
  }
  slave_ = ::open(name.data(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  termios settings{};
  if (slave_ < 0 || ::tcgetattr(slave_, &settings) != 0)
    return Fail(QString::fromLatin1(name.data()));
  ::cfmakeraw(&settings);
  if (::tcsetattr(slave_, TCSANOW, &settings) != 0) return Fail(QString::fromLatin1(name.data()));

  // Who opens and closes it is watched. Where that fails, the next user finds the old bytes.
  openings_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  if (openings_ >= 0 && ::inotify_add_watch(openings_, name.data(), IN_OPEN | IN_CLOSE) < 0) {
    CloseDescriptor(&openings_);
  }
  if (openings_ >= 0) {
    users_ = 0;
    opened_ = std::make_unique<QSocketNotifier>(openings_, QSocketNotifier::Read);
    connect(opened_.get(), &QSocketNotifier::activated, this, &PtyLine::TakeInOpenings);
  }

  device_ = QString::fromLatin1(name.data());
  if (!link.isEmpty() && !MakeLink(link)) return false;

  readable_ = std::make_unique<QSocketNotifier>(master_, QSocketNotifier::Read);
  connect(readable_.get(), &QSocketNotifier::activated, this, &PtyLine::Read);
  output_ = std::make_unique<LineOutput>(master_, [this] { return Unread(); });
  connect(output_.get(), &LineOutput::BytesHaveLeft, &conversation_, &Conversation::BytesHaveLeft);
  connect(output_.get(), &LineOutput::Failed, this, &PtyLine::Unplug);
  connect(output_.get(), &LineOutput::Finished, this, &PtyLine::Unplug);
  return true;
}

bool PtyLine::Fail(const QString& what) {
  const QString reason = QString::fromLocal8Bit(std::strerror(errno));
  Unplug();
  error_ = what + u": "_s + reason;
  return false;
}

bool PtyLine::MakeLink(const QString& link) {
  const QByteArray path = QFile::encodeName(link);
  std::array<char, 128> target{};
  const ssize_t length = ::readlink(path.constData(), target.data(), target.size());
  if (length > 0 && QByteArrayView(target.data(), length).startsWith("/dev/pts/")) {
    ::unlink(path.constData());
  }
  // Fails if anything is there.
  if (::symlink(QFile::encodeName(device_).constData(), path.constData()) != 0) return Fail(link);
  link_ = QFileInfo(link).absoluteFilePath();
  return true;
}

void PtyLine::Unplug() {
  const bool was_plugged = readable_ != nullptr;
  // The output, or a notifier, may be the one that is calling.
  if (output_ != nullptr) {
    output_->Close();
    output_.release()->deleteLater();
  }
  for (auto* notifier : {&readable_, &opened_}) {
    if (*notifier == nullptr) continue;
    (*notifier)->setEnabled(false);
    notifier->release()->deleteLater();
  }
  if (!link_.isEmpty() && QFile::symLinkTarget(link_) == device_) QFile::remove(link_);
  CloseDescriptor(&openings_);
  CloseDescriptor(&slave_);
  CloseDescriptor(&master_);
  device_.clear();
  link_.clear();
  users_ = kUnknown;
  conversation_.Reset();
  if (was_plugged) Q_EMIT Unplugged();
}

void PtyLine::TakeInOpenings() {
  alignas(inotify_event) std::array<char, 4096> events{};
  bool has_closed = false;
  ssize_t size = 0;
  while ((size = ::read(openings_, events.data(), events.size())) > 0) {
    size_t at = 0;
    while (at + sizeof(inotify_event) <= static_cast<size_t>(size)) {
      inotify_event event{};
      std::memcpy(&event, events.data() + at, sizeof(event));
      at += sizeof(event) + event.len;
      if ((event.mask & IN_OPEN) != 0) ++users_;
      if ((event.mask & IN_CLOSE) != 0) {
        has_closed = true;
        if (users_ > 0) --users_;
      }
    }
  }
  if (!has_closed) return;
  // A user that was ended may have left the terminal locked.
  ::ioctl(slave_, TIOCNXCL);
  // A port keeps nothing for whoever opens it next.
  if (users_ == 0) {
    if (output_ != nullptr) output_->Clear();
    ::tcflush(slave_, TCIFLUSH);
  }
}

void PtyLine::Read() {
  if (openings_ >= 0) TakeInOpenings();
  std::array<char, 16'384> bytes{};
  const ssize_t size = ::read(master_, bytes.data(), bytes.size());
  if (size > 0) conversation_.Receive(QByteArrayView(bytes.data(), size));
}

void PtyLine::Send(const QByteArray& bytes) {
  // Bytes on a line that nobody listens to are lost.
  if (openings_ >= 0) TakeInOpenings();
  if (IsInUse()) output_->Send(bytes);
}

qint64 PtyLine::Unsent() const { return output_ == nullptr ? 0 : output_->Unsent(); }

qint64 PtyLine::Unread() const {
  int waiting = 0;
  return ::ioctl(slave_, FIONREAD, &waiting) == 0 ? waiting : 1;
}

void PtyLine::HangUp() {
  // What a pseudo-terminal holds is lost when it goes, so the last answer must have been read
  // before.
  readable_->setEnabled(false);
  output_->Finish();
}

}  // namespace VirtualPanel
