// What every order to send is refused for alike: the file and the panel.
#pragma once

#include <QString>

#include "base/refusal.h"
#include "store/configuration_store.h"

namespace Brivon1 {

/// A file that is not there. `end` follows the text.
Refusal FileNotFound(const QString& path, const QString& end = {});

/// A file of another kind. `end` follows the text.
Refusal WrongKind(const QString& path, const QString& end = {});

/// No panel is chosen, for which an order has the English `text`.
Refusal NoPanel(const QString& text, const Configuration& configuration);

}  // namespace Brivon1
