// What a panel is: its address on the line, its size in rows and dot columns, and its colour type.
#pragma once

#include <optional>

#include <QString>

namespace VirtualPanel {

struct PanelDescription {
  int id = 1;        // 1 to 255; 0 is the broadcast address
  int rows = 4;      // 1 to 12
  int columns = 96;  // dot columns, 1 to 3000
  bool tri_colour = true;

  friend bool operator==(const PanelDescription&, const PanelDescription&) = default;
};

// Reads "ID:ROWSxCOLUMNS:mono|tri". Anything else gives nothing and a sentence in *error.
std::optional<PanelDescription> ParsePanelDescription(const QString& text, QString* error);

}  // namespace VirtualPanel
