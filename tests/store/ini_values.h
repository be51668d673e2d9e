// Values of a file that stands in memory.
#pragma once

#include <QByteArray>

#include <gtest/gtest.h>

#include "store/ini_file.h"

namespace Brivon1 {

/// The value, or "(none)" for a missing one.
inline QByteArray ValueIn(const QByteArray& content, QByteArrayView section, QByteArrayView key) {
  return IniFile(content).Value(section, key).value_or("(none)");
}

/// The file after a key was given its value.
inline QByteArray AfterSet(const QByteArray& content, QByteArrayView section, QByteArrayView key,
                           QByteArrayView value) {
  IniFile file(content);
  file.SetValue(section, key, value);
  EXPECT_EQ(file.Value(section, key), value.toByteArray());
  return file.Content();
}

}  // namespace Brivon1
