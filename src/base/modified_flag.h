// Whether work has changed since it was saved. Whoever shows that is told of every edit.
#pragma once

#include <functional>
#include <utility>

namespace Brivon1 {

class ModifiedFlag {
 public:
  ModifiedFlag() = default;

  /// Whoever is told of the one is not told of its copy.
  ModifiedFlag(const ModifiedFlag& other) : modified_(other.modified_) {}
  ModifiedFlag& operator=(const ModifiedFlag& other) { return *this = other.modified_; }

  /// Each edit sets the flag, also one after the other.
  ModifiedFlag& operator=(bool modified) {
    modified_ = modified;
    if (told_) told_(modified_);
    return *this;
  }

  /// The work has changed by an edit that leaves the flag as it is.
  void TellChanged() const {
    if (told_) told_(true);
  }

  explicit operator bool() const { return modified_; }

  /// From now on `told` is called whenever the flag is set or cleared, also to what it is already,
  /// and with true at TellChanged(): whether the work has changed.
  void Tell(std::function<void(bool changed)> told) { told_ = std::move(told); }

 private:
  bool modified_ = false;
  std::function<void(bool changed)> told_;
};

}  // namespace Brivon1
