// What is written to the two streams of the program.
#pragma once

#include <QByteArray>
#include <QString>

#include "base/shell.h"

namespace BrivonCtl {

using Brivon1::Stream;

/// Writes the bytes at once. False where they could not all be written; the first time that happens
/// to standard output a line on standard error says why. Where nobody listens any more nothing is
/// said.
bool Print(Stream stream, const QByteArray& bytes);

/// The same for a text, in the encoding of the streams.
bool PrintText(Stream stream, const QString& text);

/// Whether everything has been written to standard output, as far as anybody listened.
bool IsOutputWhole();

}  // namespace BrivonCtl
