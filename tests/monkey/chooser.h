// Chooses what a hand does next, at random: the same numbers choose the same where the windows are
// the same.
#pragma once

#include <random>

#include <QStringList>
#include <QWidget>

#include "monkey/action.h"

class Chooser {
 public:
  explicit Chooser(quint64 start) : numbers_(start) {}

  /// What is done next at the window in front.
  Action Next();

  /// How a program is started: its line, its language, its panels.
  Action NextStart();

 private:
  int Below(int count) { return static_cast<int>(numbers_() % static_cast<quint64>(count)); }
  bool OneIn(int count) { return Below(count) == 0; }
  QString OneOf(const QStringList& texts) { return texts[Below(static_cast<int>(texts.size()))]; }
  QString Place() { return QString::number(Below(1001)); }

  QString RandomText();
  Action Key();
  Action AroundTheWindow();
  Action AtTheDesktop();
  Action AtTheFileDialog();
  Action AtAPopup(const QWidget& popup);
  Action AtAMessageBox();
  Action AtTheWindow();
  Action AtTheControl(const QWidget& control);
  Action AtTheRow(const QString& path);
  Action Click(const QString& path);

  std::mt19937_64 numbers_;
};
