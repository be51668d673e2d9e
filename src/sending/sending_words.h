// What the windows that send say of a transmission beside the message that ends it.
#pragma once

#include <QString>

#include "panel_line/progress.h"
#include "panel_line/transmission.h"
#include "store/configuration_store.h"

namespace Brivon1 {

/// What is to be known of the configured link before anything is sent; empty where there is
/// nothing.
QString LinkNote(const Configuration& configuration);

/// Which serial port a window uses that sends over no other link.
QString SerialNote(const Configuration& configuration);

/// How far it has come, in one line.
QString ProgressText(const Progress& progress);

/// What of a transmission to panel `id` that has ended before its end is on the panel, and what is
/// not.
QString ArrivedText(const Progress& progress, int id);

/// Why a transmission to panel `id` over an open line has failed, what to do, and what is on the
/// panel; empty where nothing has been sent. `last_ack_status` is the TickTimer's.
QString FailureText(const Progress& progress, int id, int last_ack_status);

/// Why a transmission over `line` to panel `id` has failed: the refusal of its file, or else
/// FailureText(); that nothing has been sent where neither says more.
QString WhyNotSent(const OpenLine& line, int id);

/// The message about a link that cannot be opened in `mode`.
QString LinkFailureText(SendMode mode);

}  // namespace Brivon1
