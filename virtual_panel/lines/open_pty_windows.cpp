#include "lines/panel_lines.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {

bool PanelLines::OpenPty(const QString& link, QString* error) {
  *error = u"pseudo-terminal %1: Windows has none; use --tcp, or --serial with a serial port"_s.arg(
      link);
  return false;
}

}  // namespace VirtualPanel
