// The five control commands: which frame each sends, how it is paced, and what the operator is
// told.
#pragma once

#include <array>

#include <QDateTime>
#include <QString>
#include <QStringList>

#include "panel_line/transmission.h"

namespace Brivon1 {

enum class PanelCommand { kPolling, kSetClock, kDeleteAll, kDeletePage, kRunPage };

/// The commands' English names, in the order in which they are listed.
inline constexpr std::array<const char*, 5> kCommandNames = {"Polling", "Set Clock", "Delete All",
                                                             "Delete Page", "Run page"};

/// What is left, in milliseconds, to the last bytes of a command before its line is closed.
inline constexpr int kLastBytesTime = 300;

/// The highest page of a panel that a command may name; the lowest is 1.
inline constexpr int kHighestPage = 120;

/// Whether a command wants a page number.
bool NeedsPage(PanelCommand command);

/// Whether a command takes pages out of a panel.
bool Deletes(PanelCommand command);

/// What a command that deletes is about to do on panel `id`, in English, with "%1" in the place of
/// the panel's name; empty for the other commands. ID 0 addresses all panels and has no name.
QString WhatItDeletes(PanelCommand command, int id);

/// Whether `text` begins with a page number that a command may name, 1 to kHighestPage.
bool IsPageNumber(const QString& text);

/// What the operator is told. The pieces of the text are looked up one by one and joined by blanks.
struct CommandReport {
  QStringList text;
  QString title;
  bool succeeded = false;
};

/// Carries out `command` on panel `id` over the open link and says how it ended. `page` is the page
/// number as entered, of use to the commands that need one; `now` is what the clock is set to. A
/// frame that expects an acknowledgement is sent up to five times, with a "Delay Period" pause
/// after every failed attempt; the clock is set once, and its acknowledgement is awaited on a
/// serial line only.
CommandReport CarryOutCommand(OpenLine& line, PanelCommand command, int id, const QString& page,
                              const QDateTime& now);

}  // namespace Brivon1
