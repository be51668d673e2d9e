// Pages and small helpers for the tests of the page message.
#pragma once

#include <QByteArray>

#include "page/page_message.h"
#include "row/shown_row.h"

inline Brivon1::PageMessage PageOf(qint16 rows, qint16 columns) {
  Brivon1::PageMessage page;
  page.Begin({rows, columns});
  return page;
}

/// One press of a key.
inline void TypeKey(Brivon1::PageMessage& page, char character) { page.TypeAll({&character, 1}); }

inline void Type(Brivon1::PageMessage& page, QByteArrayView characters) {
  for (const char character : characters) TypeKey(page, character);
}
