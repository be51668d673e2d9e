#include "virtual_panel/program.h"

#include <QBuffer>

#include "base/code_page.h"
#include "base/shell.h"
#include "lines/descriptor_limit.h"
#include "window/panel_facts.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {

namespace {

// The panels answer whether or not anybody reads what is said of them.
void Tell(Brivon1::Stream stream, const QString& text) {
  Brivon1::WriteToStream(stream, Brivon1::StreamText(text), Brivon1::WhenFull::kGiveUp);
}

}  // namespace

void Say(const QString& line) { Tell(Brivon1::Stream::kOutput, line + QLatin1Char('\n')); }

void Complain(const QString& line) {
  Tell(Brivon1::Stream::kError, u"virtual_panel: "_s + line + QLatin1Char('\n'));
}

Program::Program(const Options& options) : options_(options), engine_(options.panels) {
  if (options_.code_page) Brivon1::CodePage::SetSystem(*options_.code_page);
  engine_.SetFaults(options_.faults);
  if (options_.sets_clock_answer) engine_.SetClockAnswer(options_.clock_answer);
  engine_.SetPlayOnArrival(options_.play_on_arrival);
}

bool Program::Start(QString* error) {
  return StartRecords(error) && OpenLines(error) && (options_.headless || ShowWindow(error));
}

bool Program::StartRecords(QString* error) {
  if (options_.log && !records_.KeepLog(*options_.log, error)) return false;
  if (options_.state && !records_.KeepState(*options_.state, error)) return false;
  QObject::connect(&records_, &EngineRecords::Said, &records_, Complain);
  return true;
}

bool Program::OpenLines(QString* error) {
  for (const auto signal : {&PanelLines::Opened, &PanelLines::Closed}) {
    QObject::connect(&lines_, signal, &lines_, Say);
  }
  QObject::connect(&lines_, &PanelLines::Failed, &lines_, Complain);
  lines_.SetExposed(options_.exposed);
  if (!options_.tcp_addresses.isEmpty()) {
    const auto lines = static_cast<int>(options_.tcp_addresses.size());
    lines_.SetMostConnections(MostConnections(RaiseDescriptorLimit(), lines));
  }
  for (const QString& address : std::as_const(options_.tcp_addresses)) {
    if (!lines_.OpenTcp(address, error)) return false;
  }
  for (const QString& link : std::as_const(options_.pty_links)) {
    if (!lines_.OpenPty(link, error)) return false;
  }
  for (const QString& device : std::as_const(options_.serial_devices)) {
    if (!lines_.OpenSerial(device, options_.baud_rate, error)) return false;
  }
  return true;
}

bool Program::ShowWindow(QString* error) {
  window_ = std::make_unique<PanelWindow>(&engine_);
  window_->SetScrollSpeed(options_.scroll_speed);
  const auto name_lines = [this] { window_->SetLines(lines_.Descriptions().join(Separator())); };
  name_lines();
  // A pseudo-terminal has another name each time it is plugged in.
  for (const auto signal : {&PanelLines::Opened, &PanelLines::Closed, &PanelLines::Failed}) {
    QObject::connect(&lines_, signal, window_.get(), name_lines);
  }
  QObject::connect(window_.get(), &PanelWindow::Plugged, &lines_, &PanelLines::SetPlugged);
  QObject::connect(&records_, &EngineRecords::TroubleChanged, window_.get(), [this] {
    window_->SetUnwrittenFiles(records_.UnwrittenFiles(), records_.Reasons());
  });
  window_->show();
  if (options_.picture.isEmpty()) return true;
  QObject::connect(window_.get(), &PanelWindow::Refreshed, &records_,
                   &EngineRecords::WritePictures);
  return records_.KeepPicture(
      options_.picture, [this] { return WindowPicture(); }, error);
}

QByteArray Program::WindowPicture() {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  window_->grab().save(&buffer, "PNG");
  return buffer.data();
}

}  // namespace VirtualPanel
