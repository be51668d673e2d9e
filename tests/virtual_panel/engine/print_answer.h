// Lets a failed comparison of answers show what they were.
#pragma once

#include <ostream>

#include "engine/panel_engine.h"

namespace VirtualPanel {

inline void PrintTo(const Answer& answer, std::ostream* stream) {
  *stream << "{step " << static_cast<int>(answer.step) << ", \""
          << answer.bytes.toPercentEncoding().toStdString() << "\", after " << answer.after_ms
          << " ms}";
}

}  // namespace VirtualPanel
