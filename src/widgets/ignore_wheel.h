// A wheel that turns while the pointer passes over a closed list changes nothing by accident.
#pragma once

class QComboBox;

/// Lets `list` ignore the wheel as long as it is closed: it keeps its entry, what lies around it is
/// scrolled instead, and the keyboard stays where it is.
void IgnoreWheel(QComboBox* list);
