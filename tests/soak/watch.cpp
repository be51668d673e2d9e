#include "soak/watch.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// How much may be gained in the whole time that is looked at.
constexpr double kKibInAll = 256;
constexpr double kPiecesInAll = 2;
/// In a shorter time too few moments are calm.
constexpr double kShortestTime = 4.5;

struct Quantity {
  const char* name;
  double (*value)(const Usage& usage);
  double in_all;  // 0: it hangs on other processes too, and nobody judges it
};

constexpr Quantity kQuantities[] = {
    {"allocated KiB", [](const Usage& usage) { return usage.allocated_kib; }, kKibInAll},
    {"resident KiB", [](const Usage& usage) { return usage.resident_kib; }, 8 * kKibInAll},
    {"proportional KiB", [](const Usage& usage) { return usage.proportional_kib; }, 0},
    {"descriptors", [](const Usage& usage) { return double(usage.descriptors); }, kPiecesInAll},
    {"threads", [](const Usage& usage) { return double(usage.threads); }, kPiecesInAll},
    {"objects", [](const Usage& usage) { return double(usage.objects); }, kPiecesInAll},
    {"timers", [](const Usage& usage) { return double(usage.timers); }, kPiecesInAll}};

}  // namespace

Watch::Watch(const QString& csv_path) : csv_(csv_path) {
  since_.start();
  if (csv_path.isEmpty()) return;
  if (!csv_.open(QIODevice::WriteOnly)) qFatal("cannot write %s", qUtf8Printable(csv_path));
  csv_.write("seconds,transfers,calm");
  for (const Quantity& quantity : kQuantities) csv_.write(QByteArray(",") + quantity.name);
  csv_.write("\n");
}

void Watch::Measure(bool is_calm, qint64 transfers) {
  const Usage usage = MeasureUsage();
  const double minute = Minutes();
  if (is_calm) calm_.append({minute, usage});
  if (!csv_.isOpen()) return;
  csv_.write(QByteArray::number(60 * minute, 'f', 1) + ',' + QByteArray::number(transfers) + ',' +
             (is_calm ? '1' : '0'));
  for (const Quantity& quantity : kQuantities) {
    csv_.write(',' + QByteArray::number(quantity.value(usage), 'f', 0));
  }
  csv_.write("\n");
  csv_.flush();
}

QStringList Watch::Report(double from, bool* grows) const {
  QStringList lines;
  *grows = false;
  for (const Quantity& quantity : kQuantities) {
    QList<Measurement> all;
    for (const Entry& entry : calm_) all.append({entry.minute, quantity.value(entry.usage)});
    const QList<Measurement> measurements = From(from, all);
    const double minutes =
        measurements.isEmpty() ? 0 : measurements.last().at - measurements.first().at;
    const Slope slope = FitSlope(measurements);
    const double allowed = quantity.in_all / std::max(minutes, 0.1);
    const bool is_judged = quantity.in_all > 0 && minutes >= kShortestTime;
    const bool it_grows = is_judged && Grows(slope, allowed);
    *grows = *grows || it_grows;
    lines.append(u"%1 %2 a minute, to 95 % within %3 of it, %4; at last %5%6"_s
                     .arg(QLatin1String(quantity.name), -17)
                     .arg(slope.value, 9, 'f', 3)
                     .arg(slope.margin, 0, 'f', 3)
                     .arg(is_judged ? u"allowed %1"_s.arg(allowed, 0, 'f', 3) : u"not judged"_s)
                     .arg(measurements.isEmpty() ? 0 : measurements.last().value, 0, 'f', 0)
                     .arg(it_grows ? u" GROWS"_s : QString()));
  }
  return lines;
}
