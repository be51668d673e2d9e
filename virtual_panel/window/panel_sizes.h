// How large several panels are shown in one window.
#pragma once

#include <vector>

#include <QSizeF>

namespace VirtualPanel {

struct Room {
  double width = 0;  // for each panel
  int height = 0;    // for all of them together; below 0: they must be scrolled anyway
  double pixel = 1;  // the size of one in the units of the others
};

// The height that a panel takes whose size in dots is `dots`.
int PanelHeight(const QSizeF& dots, double distance);

// The height that the panels take at least, all together.
int LeastHeight(const std::vector<QSizeF>& dots);

// The distance between two dots for each panel, by their sizes in dots. A panel that would need
// smaller dots than can be read is wider than the room.
std::vector<double> DotDistances(const std::vector<QSizeF>& dots, const Room& room);

}  // namespace VirtualPanel
