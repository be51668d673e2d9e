// How the files of page and scrolling messages hold a row: codes of four characters, for size and
// colour, stand between the characters of the text.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include "row/page_row.h"

namespace Brivon1 {

/// The text of a row with its codes. A code stands only where an attribute changes, the size before
/// the colour; the first character gets both.
QByteArray CodedText(const PageRow& row);

/// Takes the code at the beginning of `text`, which is not empty, into `attributes`, or adds the
/// character there with these attributes to `row`. Returns the length of what was read. A size code
/// with an unknown letter changes nothing but is a code all the same; a colour code may carry any
/// character.
qsizetype ReadCodedText(QByteArrayView text, Attributes& attributes, PageRow& row);

}  // namespace Brivon1
