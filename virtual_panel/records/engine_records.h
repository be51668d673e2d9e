// Keeps what an engine takes, holds and shows in files, for whoever watches it from outside: a log
// of the frames, the state of the panels, pictures of them. Trouble with any of them is told.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QObject>
#include <QString>
#include <QTimer>

#include "engine/panel_engine.h"
#include "records/kept_file.h"

namespace VirtualPanel {

class EngineRecords : public QObject {
  Q_OBJECT

 public:
  // The engine must outlive the records.
  explicit EngineRecords(PanelEngine* engine, QObject* parent = nullptr);

  // Each begins with one more file. False, with a sentence in *error: it cannot be written.
  // A line of JSON for every frame.
  bool KeepLog(const QString& path, QString* error);
  // All panels as JSON, before the answer to the frame that changed them is sent.
  bool KeepState(const QString& path, QString* error);
  // What `picture` gives, whenever WritePictures is called.
  bool KeepPicture(const QString& path, std::function<QByteArray()> picture, QString* error);
  void WritePictures();

  // The files that cannot be written at the moment, by their kinds, and of each why.
  QStringList UnwrittenFiles() const;
  QStringList Reasons() const;

 Q_SIGNALS:
  // A sentence: a file cannot be written, or is written again.
  void Said(const QString& sentence);
  // UnwrittenFiles or Reasons have become others.
  void TroubleChanged();

 private:
  bool Keep(std::unique_ptr<KeptFile> file, bool is_written, QString* error);
  void WaitForNextChange();

  PanelEngine* engine_;
  QTimer next_change_;
  std::vector<std::unique_ptr<KeptFile>> files_;
  std::vector<WholeFile*> pictures_;
};

}  // namespace VirtualPanel
