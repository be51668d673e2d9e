#include "base/windows_names.h"

#include <algorithm>

#include <QString>

using namespace Qt::StringLiterals;

namespace Brivon1 {

std::wstring WidePath(const QByteArray& path) {
  // The path of a folder leaves room for a name of 12 characters.
  constexpr qsizetype kLongestPlainPath = 260 - 12 - 1;
  const QString native = QString::fromUtf8(path).replace(u'/', u'\\');
  if (native.size() <= kLongestPlainPath || native.startsWith(uR"(\\?\)"_s)) {
    return native.toStdWString();
  }
  const bool is_of_network = native.startsWith(uR"(\\)"_s);
  return (is_of_network ? uR"(\\?\UNC)"_s + native.sliced(1) : uR"(\\?\)"_s + native)
      .toStdWString();
}

bool IsDeviceName(QStringView name) {
  const auto end = std::find_if(name.begin(), name.end(),
                                [](QChar letter) { return letter == u'.' || letter == u':'; });
  const QStringView stem = name.first(end - name.begin()).trimmed();
  const auto is = [stem](auto device) { return stem.compare(device, Qt::CaseInsensitive) == 0; };
  if (is("CON"_L1) || is("PRN"_L1) || is("AUX"_L1) || is("NUL"_L1)) return true;
  if (is("CONIN$"_L1) || is("CONOUT$"_L1)) return true;
  constexpr qsizetype kNumberedName = 4;
  return stem.size() == kNumberedName && stem.back().isDigit() &&
         (stem.startsWith("COM"_L1, Qt::CaseInsensitive) ||
          stem.startsWith("LPT"_L1, Qt::CaseInsensitive));
}

}  // namespace Brivon1
