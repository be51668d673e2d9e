// The program that libFuzzer drives. It bears the name of its target.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <QByteArray>
#include <QCoreApplication>
#include <QFileInfo>

#include "fuzz/targets.h"

namespace {

const Fuzz::Target* the_target = nullptr;

}  // namespace

// Names that libFuzzer looks for.
// NOLINTBEGIN(readability-identifier-naming)
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  const QString program = QFileInfo(QString::fromLocal8Bit((*argv)[0])).fileName();
  const auto targets = Fuzz::Targets();
  const auto target = std::find_if(targets.begin(), targets.end(), [&](const Fuzz::Target& known) {
    return program == QLatin1String(known.name);
  });
  if (target == targets.end()) {
    std::fprintf(stderr, "%s is the name of no target\n", qPrintable(program));
    std::exit(2);
  }
  the_target = &*target;
  static QCoreApplication application(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  the_target->check(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  return 0;
}
// NOLINTEND(readability-identifier-naming)
