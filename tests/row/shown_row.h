// How the tests look at a row of characters.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "row/page_row.h"

/// The characters of a row with the letters of each, "text|sizes|colours|blinks".
inline std::string Shown(const Brivon1::PageRow& row) {
  return (row.Text() + '|' + row.Size() + '|' + row.Colour() + '|' + row.Blink()).toStdString();
}

inline void ExpectEqualLengths(const Brivon1::PageRow& row) {
  EXPECT_EQ(row.Size().size(), row.Length());
  EXPECT_EQ(row.Colour().size(), row.Length());
  EXPECT_EQ(row.Blink().size(), row.Length());
  EXPECT_GE(row.Cursor(), 0);
  EXPECT_LE(row.Cursor(), row.Length());
}
