// Starts as the program does, and ends when its main window has been drawn.
#include "app/frmMain.h"
#include "start_window.h"

int main(int argc, char** argv) {
  return RunUntilDrawn(argc, argv, [] { return std::make_unique<frmMain>(); });
}
