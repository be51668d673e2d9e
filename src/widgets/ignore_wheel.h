// A wheel that turns while the pointer passes over a closed list or a number changes nothing by
// accident.
#pragma once

class QWidget;

/// Lets a list, as long as it is closed, or a box for a number ignore the wheel: it keeps what it
/// has, what lies around it is scrolled instead, and the keyboard stays where it is.
void IgnoreWheel(QWidget* control);
