// What every order to send is refused for alike: the file and the panel.
#pragma once

#include <QString>

#include "base/dimension.h"
#include "base/refusal.h"
#include "language/file_remedies.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace Brivon1 {

/// The name of a panel in the lists: "ID001".
QString PanelName(int id);

/// A file that is not there. `end` follows the text.
Refusal FileNotFound(const QString& path, const QString& end = {});

/// A file that is not of the kind `wanted`. `end` follows the text.
Refusal WrongKind(const QString& path, FileSort wanted, const QString& end = {});

/// No panel is chosen, for which an order has the English `text`.
Refusal NoPanel(const QString& text, const Configuration& configuration);

/// That of panel `id`, which has no address and is to be reached over TCP/IP.
Refusal NoAddress(int id);

/// A file of kind `sort`, made for `dimension`, that does not fit the panel.
Refusal DimensionNotMatched(FileSort sort, Dimension dimension, const PanelListEntry& panel);

}  // namespace Brivon1
