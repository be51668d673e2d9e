#include "records/engine_records.h"

#include <utility>

#include "engine/timer_wait.h"
#include "records/engine_json.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {

EngineRecords::EngineRecords(PanelEngine* engine, QObject* parent)
    : QObject(parent), engine_(engine) {
  next_change_.setSingleShot(true);
  next_change_.setTimerType(Qt::PreciseTimer);
}

bool EngineRecords::KeepLog(const QString& path, QString* error) {
  auto log = std::make_unique<LogFile>(u"log"_s, path);
  connect(engine_, &PanelEngine::FrameReceived, log.get(),
          [log = log.get()](const FrameRecord& record) { log->Append(LogLine(record)); });
  const bool is_open = log->Open();
  return Keep(std::move(log), is_open, error);
}

bool EngineRecords::KeepState(const QString& path, QString* error) {
  auto state =
      std::make_unique<WholeFile>(u"state"_s, path, [this] { return StateDocument(*engine_); });
  // The wait is set first: a change that comes while the file is written ends it at once.
  const auto follow = [this, state = state.get()] {
    WaitForNextChange();
    state->Write();
  };
  connect(engine_, &PanelEngine::Changed, state.get(), follow);
  // A schedule goes on without a frame.
  connect(&next_change_, &QTimer::timeout, state.get(), follow);
  const bool is_written = state->Write();
  return Keep(std::move(state), is_written, error);
}

bool EngineRecords::KeepPicture(const QString& path, std::function<QByteArray()> picture,
                                QString* error) {
  auto file = std::make_unique<WholeFile>(u"picture"_s, path, std::move(picture));
  pictures_.push_back(file.get());
  const bool is_written = file->Write();
  return Keep(std::move(file), is_written, error);
}

void EngineRecords::WritePictures() {
  for (WholeFile* picture : pictures_) picture->Write();
}

bool EngineRecords::Keep(std::unique_ptr<KeptFile> file, bool is_written, QString* error) {
  if (!is_written) *error = file->TroubleText();
  connect(file.get(), &KeptFile::Said, this, &EngineRecords::Said);
  connect(file.get(), &KeptFile::TroubleChanged, this, &EngineRecords::TroubleChanged);
  files_.push_back(std::move(file));
  return is_written;
}

QStringList EngineRecords::UnwrittenFiles() const {
  QStringList names;
  for (const auto& file : files_) {
    if (!file->Trouble().isEmpty()) names.append(file->Name());
  }
  return names;
}

QStringList EngineRecords::Reasons() const {
  QStringList reasons;
  for (const auto& file : files_) {
    if (!file->Trouble().isEmpty()) reasons.append(file->TroubleText());
  }
  return reasons;
}

void EngineRecords::WaitForNextChange() {
  const QDateTime now = engine_->Now();
  if (const auto next = engine_->NextChange(now)) {
    next_change_.start(TimerWait(now, *next));
  } else {
    next_change_.stop();
  }
}

}  // namespace VirtualPanel
