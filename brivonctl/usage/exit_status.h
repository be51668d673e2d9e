// What brivonctl tells the shell that started it.
#pragma once

namespace BrivonCtl {

enum ExitStatus : int {
  kAllDone = 0,
  kSomeFailed = 1,
  kWrongUse = 2,  ///< An unknown word, a missing option, a number that cannot be.
  kRefused = 3,   ///< A configuration or a file that does not do; nothing was sent.
  kStopped = 130  ///< By SIGINT or SIGTERM.
};

}  // namespace BrivonCtl
