// Starts an empty window, and ends when it has been drawn.
#include "start_window.h"

int main(int argc, char** argv) {
  return RunUntilDrawn(argc, argv, [] {
    auto window = std::make_unique<QWidget>();
    window->resize(600, 200);
    return window;
  });
}
