// The key of a box in a window: it turns the box from wherever the keyboard is, and stands in the
// box's tool tip.
#pragma once

class QCheckBox;
class QKeySequence;

void BindKey(const QKeySequence& keys, QCheckBox* box);
