// Panels at both kinds of line in virtual time, and what sends to them.
#pragma once

#include <optional>

#include <QDateTime>
#include <QList>
#include <QString>

#include "engine/panel_engine.h"
#include "panel_line/panel_connection.h"
#include "soak/hostility.h"
#include "soak/random.h"
#include "soak/random_work.h"
#include "soak/slow_port.h"
#include "soak/told.h"
#include "support/program_folder.h"
#include "support/virtual_time.h"

class Site {
 public:
  explicit Site(quint64 start);

  struct Outcome {
    Told::End end = Told::End::kFailed;
    QString wrong;  ///< Empty where everything is as it must be.
    qsizetype frames = 0;
    bool was_cut = false;
  };

  /// One transfer. Its texts bear `serial`.
  Outcome Transfer(qint64 serial);

  /// What has been done since the site was set up.
  qint64 Milliseconds() const { return time_.Now(); }

 private:
  /// Configures the link, its speed and the pauses anew.
  void Configure(bool over_tcp);
  void Prepare(const Hostility& hostility);
  Told Send(const Work& work);
  /// Lets the time pass until nothing is to happen any more.
  void LetItEnd();
  QString LeftOver() const;
  QString Wrong(const Told& told, const Work& work, const Hostility& hostility,
                qint64 milliseconds) const;

  Random random_;
  QList<VirtualPanel::PanelDescription> panels_;
  VirtualTime time_;
  VirtualTickTimer timer_{time_};
  VirtualClock clock_{time_};
  TemporaryProgramFolder folder_;
  VirtualPanel::PanelEngine engine_;
  SlowPort serial_;
  LossySocket tcp_;
  Brivon1::PanelPorts ports_{serial_, tcp_, timer_, clock_};
  QList<QByteArray> received_;
};
