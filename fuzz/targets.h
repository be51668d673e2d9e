// The targets: for each reader a function that reads any bytes and throws Broken where something
// that must be true of every input is not. They are called again and again in one process, and
// nothing of one call is left for the next.
#pragma once

#include <span>

#include <QByteArray>

namespace Fuzz {

void CheckCodePage(const QByteArray& input);
void CheckCodedText(const QByteArray& input);
void CheckConfiguration(const QByteArray& input);
void CheckIniFile(const QByteArray& input);
void CheckLanguageFile(const QByteArray& input);
void CheckMessageFile(const QByteArray& input);
void CheckMessageText(const QByteArray& input);
void CheckPanelEngine(const QByteArray& input);
void CheckPanelList(const QByteArray& input);
void CheckScheduleFile(const QByteArray& input);
void CheckScrollingFile(const QByteArray& input);

struct Target {
  const char* name;  ///< Also that of its program, its corpus and its dictionary.
  void (*check)(const QByteArray& input);
};

/// All of them, in the order of their names.
std::span<const Target> Targets();

}  // namespace Fuzz
