// What a window holds that is lost with it unless it is saved.
#pragma once

class UnsavedWork {
 public:
  virtual ~UnsavedWork() = default;

  virtual bool IsModified() const = 0;

  /// Asks about unsaved work, if there is any, and saves it on "Yes". False: whatever was to follow
  /// is not to happen.
  virtual bool MayLeave() = 0;
};
