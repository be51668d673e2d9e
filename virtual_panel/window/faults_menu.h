// The menu of the faults: those of the command line, to be set and taken away at any time, and the
// pulled plug.
#pragma once

#include <QAction>
#include <QMap>
#include <QMenu>
#include <QStringList>

#include "engine/panel_engine.h"

namespace VirtualPanel {

class FaultsMenu : public QMenu {
  Q_OBJECT

 public:
  // The engine must outlive the menu.
  explicit FaultsMenu(PanelEngine* engine, QWidget* parent = nullptr);

  // What is wrong at the moment, by the names of the command line; "unplugged" is one of them.
  QStringList Names() const;

 Q_SIGNALS:
  // The lines are to be cut, or can be reached again.
  void Plugged(bool plugged);
  void NamesChanged(const QStringList& names);

 private:
  void Toggle(const QString& name, bool is_wanted);
  void AskForFault();
  void SetPlugged(bool plugged);
  void Refresh();

  PanelEngine* engine_;
  QMap<QString, QAction*> faults_;  // by their names
  QAction* none_ = nullptr;
  QAction* unplugged_ = nullptr;
  bool is_plugged_ = true;
};

}  // namespace VirtualPanel
