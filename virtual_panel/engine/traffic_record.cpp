#include "engine/traffic_record.h"

namespace VirtualPanel {

void TrafficRecord::Remember(const FrameRecord& record) {
  ++count_;
  frames_.append(record);
  bytes_ += record.bytes.size();
  while (frames_.size() > kMostFrames || bytes_ > kMostBytes) {
    bytes_ -= frames_.first().bytes.size();
    frames_.removeFirst();
  }
}

}  // namespace VirtualPanel
