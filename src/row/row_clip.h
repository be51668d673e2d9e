// Characters of a row on the clipboard: as bytes that carry their sizes, colours and blinking to
// another row of this program, and as text for everyone else.
#pragma once

#include <optional>

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include "row/page_row.h"

namespace Brivon1 {

/// The media type of the bytes. They begin with a line that names their version and the code page;
/// behind it stand four bytes for each character: itself, size, colour, blinking.
inline constexpr const char* kRowClipType = "application/x-brivon-row";

/// The bytes for the characters of `row`; none where there are more than a clip may hold.
QByteArray RowClip(const PageRow& row);

/// The characters of a clip, or nothing for bytes that are none: another version, another code page
/// than the program works with, a size, colour or blinking that no row has, a control character
/// as a colour, or too many. Of the characters, those that would act as keys are left out.
std::optional<PageRow> ReadRowClip(QByteArrayView bytes);

/// The same characters as text.
QString ClipText(const PageRow& row);

}  // namespace Brivon1
