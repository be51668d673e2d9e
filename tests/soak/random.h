// Choices that look random and are the same again with the same start number.
#pragma once

#include <random>

#include <QList>
#include <QtGlobal>

class Random {
 public:
  explicit Random(quint64 start) : engine_(start) {}

  /// 0 to `count` - 1.
  int Below(int count) { return static_cast<int>(engine_() % static_cast<quint64>(count)); }

  int Between(int first, int last) { return first + Below(last - first + 1); }

  bool OneIn(int count) { return Below(count) == 0; }

  template <typename T>
  T OneOf(const QList<T>& choices) {
    return choices.at(Below(static_cast<int>(choices.size())));
  }

 private:
  std::mt19937_64 engine_;
};
