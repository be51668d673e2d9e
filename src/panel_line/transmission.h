// The open line that every transmission to a panel works with, and the attempts at one acknowledged
// frame.
#pragma once

#include <functional>

#include <QByteArray>
#include <QString>

#include "base/file_source.h"
#include "panel_line/link.h"
#include "panel_line/progress.h"
#include "store/configuration_store.h"

namespace Brivon1 {

/// Shows how a transmission proceeds.
using StatusLabel = std::function<void(const QString& text)>;

/// A line that was opened for a transmission. Who opened it closes it and reports the result.
struct OpenLine {
  PanelLink& link;
  TickTimer& timer;
  MillisecondClock& clock;
  Configuration configuration;  ///< As it was when the line was opened.
  StatusLabel status;
  ShowProgress show_progress = {};  ///< Empty where nobody looks.
  Progress progress = {};           ///< As it was shown last; after a failure, where it ended.
  QString refusal = {};             ///< Why nothing of a file was sent, as it is shown; else empty.
  const FileSource* files = &Disk();  ///< Where its files are read.

  /// Shows `progress`, which the caller has changed.
  void Report() const {
    if (show_progress) show_progress(progress);
  }
};

/// Throws away what has been received and not read: bytes left over from an earlier exchange would
/// be counted into the next acknowledgement. A panel that never stops sending is not waited for.
void DiscardInput(PanelLink& link);

/// Sends `frame` up to five times without a pause, until panel `id` acknowledges it. `before` is
/// called ahead of every attempt. Between sending and waiting for the acknowledgement,
/// `sending_time` milliseconds of ticks are left to the frame. A lost line or a stop ends the
/// attempts, a stop not before the one in progress. Each attempt is reported.
bool SendUntilAcknowledged(OpenLine& line, int id, const QByteArray& frame,
                           const std::function<void()>& before, int sending_time = 0);

/// Waits until all that was written has left, and returns whether it has. An acknowledgement does
/// not prove that: on a slow line it may answer an earlier attempt while the last one still waits
/// here. All panels together, ID 0, never acknowledge. `look` is called while it waits, for the
/// last time when the rest is about to be given up.
bool HasArrived(OpenLine& line, int id, const std::function<void()>& look = {});

}  // namespace Brivon1
