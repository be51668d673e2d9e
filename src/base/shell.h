// What a program without a window and the shell that started it tell each other: the words of the
// command line and the two standard streams.
#pragma once

#include <string>
#include <vector>

#include <QByteArray>
#include <QString>

namespace Brivon1 {

enum class Stream { kOutput, kError };

/// What becomes of a stream that is full, where somebody has made it one that does not wait.
enum class WhenFull { kWait, kGiveUp };

/// The words of the command line, the program's name first, as main() is given them; on Windows,
/// where it is not given every character, as the system has them, in UTF-8.
std::vector<std::string> CommandLineWords(int argc, const char* const* argv);

/// The text of such a word.
QString TextOfWord(const std::string& word);

/// The text as it is written to a stream: in the system's own encoding; on Windows in UTF-8.
QByteArray StreamText(const QString& text);

/// Writes the bytes at once. Where a full stream is waited for, that has no end. What goes to a
/// console of Windows must be StreamText. Returns 0 or the system's number of the error.
int WriteToStream(Stream stream, const QByteArray& bytes, WhenFull when_full = WhenFull::kWait);

/// Whether the error means that nobody listens to the stream any more.
bool IsListenerGone(int error);

}  // namespace Brivon1
