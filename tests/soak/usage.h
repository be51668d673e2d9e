// What this process holds: memory, descriptors, threads, objects and timers.
#pragma once

#include <QtGlobal>

struct Usage {
  double resident_kib = 0;      ///< Pages in memory, those that it shares included.
  double proportional_kib = 0;  ///< The same, of a shared page its share.
  double allocated_kib = 0;     ///< Handed out by malloc; 0 under a sanitizer, which has its own.
  int descriptors = 0;
  int threads = 0;
  int objects = 0;  ///< QObjects.
  int timers = 0;   ///< Running ones of this thread.
};

/// From now on Usage counts QObjects and their timers. To be called before there are any.
void CountObjects();

Usage MeasureUsage();

/// Bytes handed out by malloc.
qint64 AllocatedBytes();
