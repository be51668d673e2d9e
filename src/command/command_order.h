// The checks that a command passes before it is sent, and what is said of it afterwards.
#pragma once

#include <optional>

#include <QString>

#include "base/refusal.h"
#include "command/commands.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace Brivon1 {

/// What keeps a command from the panel; nothing where nothing does. It is checked before the line
/// is opened.
std::optional<Refusal> CheckCommandPanel(const std::optional<PanelListEntry>& panel,
                                         const Configuration& configuration);

/// What keeps a command from the page that was entered as `text`; nothing where nothing does. It is
/// checked behind the line's opening, and only for a command that needs a page.
std::optional<Refusal> CheckCommandPage(const QString& text);

/// How a command has ended, in the operator's language.
QString CommandReportText(const CommandReport& report);

}  // namespace Brivon1
