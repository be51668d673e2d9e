#include "support/memory_line.h"

#include <QEventLoop>
#include <QTimer>

bool HandleEvents() {
  // A loop that ends before its time was ended by the program's end, and after that each one is.
  const auto handle = [] {
    QEventLoop loop;
    bool is_done = false;
    QTimer::singleShot(0, &loop, [&] {
      is_done = true;
      loop.quit();
    });
    loop.exec();
    return is_done;
  };
  return handle() && handle();
}
