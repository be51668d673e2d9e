#include "lines/descriptor_limit.h"

namespace VirtualPanel {

// Nothing but memory limits them here.
int RaiseDescriptorLimit() { return kMostDescriptors; }

}  // namespace VirtualPanel
