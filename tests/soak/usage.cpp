#include "soak/usage.h"

#include <malloc.h>
#include <unistd.h>

#include <unordered_set>

#include <QAbstractEventDispatcher>
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QMutex>

using namespace Qt::StringLiterals;

// The toolkit calls these functions for every object that is made and destroyed, for programs that
// look into others. Its header is not installed, but the table keeps its places.
extern quintptr Q_CORE_EXPORT qtHookData[];

namespace {

constexpr int kAddObjectHook = 3;
constexpr int kRemoveObjectHook = 4;
constexpr double kKib = 1024;

QMutex& ObjectsMutex() {
  static QMutex mutex;
  return mutex;
}

std::unordered_set<QObject*>& Objects() {
  static auto* objects = new std::unordered_set<QObject*>();  // outlives every object
  return *objects;
}

void AddObject(QObject* object) {
  const QMutexLocker lock(&ObjectsMutex());
  Objects().insert(object);
}

void RemoveObject(QObject* object) {
  const QMutexLocker lock(&ObjectsMutex());
  Objects().erase(object);
}

int EntriesOf(const QString& folder) {
  return static_cast<int>(
      QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

/// The number behind `name` in a file of "name: number kB" lines; 0 where it does not stand there.
double KibOf(const QString& file_name, const QByteArray& name) {
  QFile file(file_name);
  if (!file.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : file.readAll().split('\n')) {
    if (!line.startsWith(name)) continue;
    return line.mid(name.size()).trimmed().split(' ').first().toDouble();
  }
  return 0;
}

}  // namespace

void CountObjects() {
  ObjectsMutex();
  qtHookData[kAddObjectHook] = reinterpret_cast<quintptr>(&AddObject);
  qtHookData[kRemoveObjectHook] = reinterpret_cast<quintptr>(&RemoveObject);
}

qint64 AllocatedBytes() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<qint64>(info.uordblks + info.hblkhd);
}

Usage MeasureUsage() {
  Usage usage;
  usage.allocated_kib = static_cast<double>(AllocatedBytes()) / kKib;
  usage.resident_kib = KibOf(u"/proc/self/status"_s, "VmRSS:");
  usage.proportional_kib = KibOf(u"/proc/self/smaps_rollup"_s, "Pss:");
  usage.descriptors = EntriesOf(u"/proc/self/fd"_s);
  usage.threads = EntriesOf(u"/proc/self/task"_s);
  const auto* dispatcher = QAbstractEventDispatcher::instance();
  const QMutexLocker lock(&ObjectsMutex());
  usage.objects = static_cast<int>(Objects().size());
  for (QObject* object : Objects()) {
    if (dispatcher != nullptr) {
      usage.timers += static_cast<int>(dispatcher->registeredTimers(object).size());
    }
  }
  return usage;
}
