// Goes the way of an operator, by key and mouse, through the real windows: sets up a panel,
// composes a page, saves it, sends it, builds a schedule and sends that, polls the panel, sets its
// clock, runs and deletes pages; over TCP and over a serial line, in English and from a language
// file. The virtual panel runs as the program that it is; what it holds afterwards is compared,
// byte for byte, with what was typed. Every step is printed, every window leaves a picture, and any
// step that fails makes the program fail.
#pragma once

#include <functional>

#include <QDir>
#include <QString>
#include <QWidget>

#include "app/frmMain.h"
#include "journey/panel_program.h"
#include "support/program_folder.h"

class Journey {
 public:
  Journey(const QString& panel_program, QString samples, const QString& pictures);

  /// The number of steps that failed.
  int Run();

 private:
  /// From no configuration at all to the first panel and the link.
  void SetUpAPanel();
  void OverTcp();
  void OverTheSerialLine();
  void InAnotherLanguage();

  /// Prints `what`, and whether it succeeded.
  void Step(const char* what, bool succeeded);
  void TakePicture(QWidget* window, const char* name);
  void Configure(const char* send_mode, int language);

  /// Opens a task window from the launcher and lets `visit` work in it.
  void Visit(frmMain& launcher, const char* button, const char* window_name,
             const std::function<void(QWidget*)>& visit);

  void ComposeAPage(QWidget* editor);
  void SaveThePage(QWidget* editor);

  /// Sends the editor's page to the first panel as page `page`.
  void SendThePage(QWidget* editor, const QString& page);

  /// Carries out the command in a row of the list and checks the message box.
  void Command(QWidget* window, int row, const QString& page, const char* text);

  /// Adds the saved page to the schedule, with `delay` and the feature `downs` entries below the
  /// first.
  void AddToSchedule(QWidget* editor, const QString& delay, int downs);

  void BuildASchedule(QWidget* editor);

  /// Sends the editor's schedule to the first panel under `letter`; `page` is the letter's first.
  void SendTheSchedule(QWidget* editor, const char* letter, int page, const char* text);

  void ComposeAScrollingMessage(QWidget* editor);

  /// Sends the editor's scrolling message to row 3 of the first panel.
  void SendTheScrollingMessage(QWidget* editor);

  TemporaryProgramFolder folder_;
  QString samples_;
  QDir pictures_;
  PanelProgram panel_;
  QString page_file_;
  QString schedule_file_;
  int steps_ = 0;
  int failures_ = 0;
};
