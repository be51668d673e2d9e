// Panels and what they are sent, made up at random: the file that Brivon is given, and beside it,
// put together from the same pieces, every frame that a panel is to receive of it and what it holds
// then.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "engine/panel_description.h"
#include "engine/schedule.h"
#include "soak/random.h"
#include "support/program_folder.h"

enum class WorkKind {
  kPage,
  kSchedule,
  kScrolling,
  kPoll,
  kSetClock,
  kDeleteAll,
  kDeletePage,
  kRunPage
};

struct SentPage {
  int number = 0;
  QList<QByteArray> rows;  ///< As a panel holds them, from row 1.
};

struct Work {
  WorkKind kind = WorkKind::kPoll;
  VirtualPanel::PanelDescription panel;  ///< ID 0: all panels together.
  QString path;                          ///< Of the file that is sent; empty for a command.
  QString number;            ///< The page, the line or the letter; empty where there is none.
  QList<QByteArray> frames;  ///< Each once, in their order; of a set clock none.
  QList<SentPage> pages;
  char letter = 'A';
  VirtualPanel::Schedule schedule;
  int row = 0;           ///< Of the scrolling message.
  QByteArray scrolling;  ///< As a panel holds it.
};

/// One to four panels of different IDs, ascending.
QList<VirtualPanel::PanelDescription> RandomPanels(Random& random);

/// Anything that Brivon can send to `panel`. The texts bear the number `serial`, so that what an
/// earlier work has left in a panel is not taken for this one's.
Work RandomWork(Random& random, const VirtualPanel::PanelDescription& panel,
                const TemporaryProgramFolder& folder, qint64 serial);

/// "Polling of panel 26", for a message about what went wrong.
QString Describe(const Work& work);
