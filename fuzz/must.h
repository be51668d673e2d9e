// What must be true of every input: whoever runs a target is told what was not.
#pragma once

#include <stdexcept>

namespace Fuzz {

/// Something that must be true was not; what() says which.
class Broken : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

inline void Must(bool holds, const char* what) {
  if (!holds) throw Broken(what);
}

}  // namespace Fuzz
