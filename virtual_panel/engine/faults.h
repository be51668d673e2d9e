// What can be wrong with a panel or its line, as data: set from the command line, a menu or a test,
// and changed at any time. The engine turns it into what is sent when; the lines only carry that
// out.
#pragma once

#include <QString>
#include <QStringList>

namespace VirtualPanel {

struct Faults {
  bool silent = false;      // nothing is ever answered
  int silent_answers = 0;   // the first so many answers are swallowed
  bool garbage = false;     // eight wrong bytes in place of the acknowledgement
  bool lower_case = false;  // "<ID1a>" for "<ID1A>"
  bool stray_byte = false;  // one byte too many in front, sent together with the rest
  int pieces = 1;           // the answer comes in so many pieces (at most one a byte) ...
  int piece_pause_ms = 50;  // ... with this pause between two of them
  int late_ms = 0;          // the answer comes so long after the frame
  int close_after_frame =
      0;               // the line is cut, once, when the n-th frame has been answered; 0: never
  bool flood = false;  // bytes without end follow the first frame

  friend bool operator==(const Faults&, const Faults&) = default;
};

// The names that ParseFault takes, with their number where they have one.
QStringList FaultNames();

// Adds the fault "NAME" or "NAME:N" to *faults. False, with a sentence in *error, for anything
// else.
bool ParseFault(const QString& text, Faults* faults, QString* error);

// Takes away what ParseFault adds for the same text, whatever its number is now.
void RemoveFault(const QString& text, Faults* faults);

// Whether ParseFault would add nothing that is not there already, the same number included.
bool HasFault(const QString& text, const Faults& faults);

// The faults by name, as ParseFault takes them.
QStringList NamesOf(const Faults& faults);

}  // namespace VirtualPanel
