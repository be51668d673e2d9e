#include "window/panel_sizes.h"

#include <optional>

#include <QtMath>

namespace VirtualPanel {
namespace {

// Smaller dots cannot be read: a panel that is too wide for them is scrolled.
constexpr double kLeastDistance = 2;
constexpr double kGoodDistance = 3;
// Larger ones are no dots any more.
constexpr double kMostDistance = 24;

}  // namespace

int PanelHeight(const QSizeF& dots, double distance) { return qCeil(dots.height() * distance); }

int LeastHeight(const std::vector<QSizeF>& dots) {
  int height = 0;
  for (const QSizeF& size : dots) height += PanelHeight(size, kLeastDistance);
  return height;
}

std::vector<double> DotDistances(const std::vector<QSizeF>& dots, const Room& room) {
  std::vector<double> distances(dots.size(), kLeastDistance);
  int free_height = room.height - LeastHeight(dots);
  // If the panels must be scrolled anyway, they can have dots that are good to look at.
  if (free_height < 0) {
    for (std::size_t i = 0; i < dots.size(); ++i) {
      if (dots[i].width() * kGoodDistance <= room.width) distances[i] = kGoodDistance;
    }
  }
  // Dot by dot of its own pixels each panel grows, the one with the smallest dots first, until it
  // is as wide as the window or there is no more height.
  for (;;) {
    std::optional<std::size_t> smallest;
    const auto growth = [&](std::size_t i) {
      return PanelHeight(dots[i], distances[i] + room.pixel) - PanelHeight(dots[i], distances[i]);
    };
    for (std::size_t i = 0; i < dots.size(); ++i) {
      const double next = distances[i] + room.pixel;
      const bool has_room =
          dots[i].width() * next <= room.width && growth(i) <= free_height && next <= kMostDistance;
      if (has_room && (!smallest || distances[i] < distances[*smallest])) smallest = i;
    }
    if (!smallest) return distances;
    free_height -= growth(*smallest);
    distances[*smallest] += room.pixel;
  }
}

}  // namespace VirtualPanel
