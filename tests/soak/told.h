// Whether what was told of a transfer is true: compared with what the panels hold.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "engine/panel_engine.h"
#include "soak/random_work.h"

struct Told {
  enum class End { kFinished, kFailed, kStopped };

  End end = End::kFailed;
  QString why;  ///< What stands below a message that something has not been done.
};

/// What is not true of `told`, in words; empty where all of it is. `received` are the frames that
/// the panels were sent, cut or whole.
QString Untruth(const Told& told, const Work& work, const VirtualPanel::PanelEngine& engine,
                const QList<QByteArray>& received);

/// What is wrong with the frames that arrived whole: each is the one before once more, or the next
/// one. Empty where nothing is.
QString WrongFrame(const Work& work, const QList<QByteArray>& received);
