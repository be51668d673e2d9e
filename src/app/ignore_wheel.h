// A wheel that turns while the pointer passes over a closed list changes nothing by accident.
#pragma once

class QComboBox;

/// Lets `list` ignore the wheel as long as it is closed.
void IgnoreWheel(QComboBox* list);
