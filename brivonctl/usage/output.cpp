#include "usage/output.h"

#include <utility>

#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

bool is_output_whole = true;

}  // namespace

bool Print(Stream stream, const QByteArray& bytes) {
  const int error = Brivon1::WriteToStream(stream, bytes);
  if (error == 0) return true;
  if (stream == Stream::kOutput && !Brivon1::IsListenerGone(error) &&
      std::exchange(is_output_whole, false)) {
    Complain(u"the result cannot be written: %1"_s.arg(qt_error_string(error)));
  }
  return false;
}

bool PrintText(Stream stream, const QString& text) {
  return Print(stream, Brivon1::StreamText(text));
}

bool IsOutputWhole() { return is_output_whole; }

}  // namespace BrivonCtl
