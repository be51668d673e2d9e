// The windows that send as the line faults meet them: each with the moments of its transmission at
// which a line can fail, what its panel holds before and behind every frame, and what the window
// says of a transmission that ends there.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include "engine/panel_engine.h"
#include "sending/sending_windows.h"
#include "support/message_box_reader.h"

enum class Moment { kBefore, kFirstRow, kMiddleRow, kLastRow, kScheduleFrame };

inline constexpr Moment kMoments[] = {Moment::kBefore, Moment::kFirstRow, Moment::kMiddleRow,
                                      Moment::kLastRow, Moment::kScheduleFrame};

const char* NameOf(Moment moment);

/// How a transmission ends.
enum class Ending {
  kFinished,     ///< Every frame was acknowledged.
  kNoAnswer,     ///< A frame had no answer in time, five times.
  kWrongAnswer,  ///< A frame had a wrong answer, five times.
  kCut,          ///< The line went between a frame and its answer.
  kCutBetween,   ///< The line went between an answer and the next frame.
  kNothingSent,  ///< The line was opened, and went before the first frame.
  kNotOpened,
};

struct FaultyWindow {
  SendingWindow window;
  const char* name;
  /// The frame, from 1, that is under way at each moment from the first row on; the window has only
  /// so many of them.
  QList<int> frames_at;

  QByteArray older;  ///< What its panel was sent before.
  /// What the panel holds in the place that each frame is for.
  QStringList (*held)(const VirtualPanel::PanelEngine& engine);
  QStringList held_before;
  QStringList held_after;

  /// What the window says of as many acknowledged frames, "%1" and "%2" being the message files'
  /// paths.
  QStringList arrived;
};

const QList<FaultyWindow>& FaultyWindows();

/// The frame under way at a moment; 0 before the first one, nothing where it has no such moment.
std::optional<int> FrameAt(const FaultyWindow& window, Moment moment);

/// A message box as it must look.
struct ExpectedBox {
  QString text;
  QString informative;
};

/// The boxes of a transmission that ends so after `arrived` acknowledged frames. `reason` is why
/// the line could not be opened.
QList<ExpectedBox> BoxesOf(const FaultyWindow& window, LineKind line, Ending ending, int arrived,
                           const TemporaryProgramFolder& folder, const QString& reason);
