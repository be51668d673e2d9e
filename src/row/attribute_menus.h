// What the menu of a row offers of the attributes: the colours and the sizes, each as it looks, and
// blinking. A choice there is one in the window's own controls.
#pragma once

#include <functional>

#include "row/edited_message.h"

class QCheckBox;
class QComboBox;
class QMenu;

/// The controls that choose the attributes of what is typed next, or of what is selected.
struct AttributeControls {
  QComboBox* colour = nullptr;
  QComboBox* size = nullptr;
  QCheckBox* blink = nullptr;
};

/// Appends them to `menu`. Checked is what all selected characters have, or what is typed next.
/// `choose_blink` is called for a choice that leaves the check box as it is.
void AddAttributes(QMenu* menu, const AttributeControls& controls,
                   const Brivon1::EditedMessage& message,
                   const std::function<void(bool blinking)>& choose_blink);
