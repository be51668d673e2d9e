#include "app/launcher_layout.h"

#include <algorithm>

#include "base/twips.h"

namespace Brivon1 {
namespace {

constexpr int kNarrower = 20;  // twips

}  // namespace

int LauncherButtonWidth(int window_width) {
  return std::max(0, window_width / kLauncherButtons - kNarrower);
}

int LauncherButtonPixels(int window_width) {
  return (LauncherButtonWidth(window_width * kTwipsPerPixel) + kTwipsPerPixel / 2) / kTwipsPerPixel;
}

}  // namespace Brivon1
