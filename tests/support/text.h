// The texts of tests.
#pragma once

#include <QString>

/// `text`, which is in UTF-8.
inline QString Text(const char* text) { return QString::fromUtf8(text); }
