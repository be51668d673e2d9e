// What every frame must be, and a line that takes frames down.
#pragma once

#include <functional>

#include <QByteArray>
#include <QList>
#include <QString>

#include "panel_line/transmission.h"

namespace Fuzz {

/// Throws Broken unless `frame` begins with the address of panel `id`, ends with CR LF, and holds
/// no other line end than `source`, the bytes that it was made from, has.
void MustBeFrame(const QByteArray& frame, int id, const QByteArray& source);

/// What `send` writes to an open line over which panel `id` of `colour_type` acknowledges
/// everything at once.
QList<QByteArray> FramesOf(int id, qint16 colour_type,
                           const std::function<void(Brivon1::OpenLine& line)>& send);

}  // namespace Fuzz
