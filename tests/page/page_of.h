// Pages and small helpers for the tests of the page message.
#pragma once

#include <string>

#include <QByteArray>

#include <gtest/gtest.h>

#include "page/page_message.h"

inline Brivon1::PageMessage PageOf(qint16 rows, qint16 columns) {
  Brivon1::PageMessage page;
  page.Begin({rows, columns});
  return page;
}

inline void Type(Brivon1::PageMessage& page, QByteArrayView characters) {
  for (const char character : characters) page.TypeKey(character);
}

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
