// "brivonctl show FILE": what a panel shows of a file, in the terminal or as a picture.
#pragma once

namespace BrivonCtl {

class CommandLine;

void AddShow(CommandLine* line);

}  // namespace BrivonCtl
