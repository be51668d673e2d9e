#include <utility>

#include "lines/panel_lines.h"
#include "lines/pty_line.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {

bool PanelLines::OpenPty(const QString& link, QString* error) {
  auto line = std::make_unique<Line>();
  auto pty = std::make_unique<PtyLine>(engine_);
  line->open = [pty = pty.get(), link](QString* reason) {
    if (pty->Open(link)) return true;
    *reason = u"pseudo-terminal "_s + pty->ErrorString();
    return false;
  };
  line->cut = [pty = pty.get()] { pty->Unplug(); };
  line->is_open = [pty = pty.get()] { return pty->IsPlugged(); };
  line->name = u"pty "_s + link;
  line->open_description = [pty = pty.get(), line = line.get()] {
    return u"%1 -> %2"_s.arg(line->name, pty->DeviceName());
  };
  connect(pty.get(), &PtyLine::Unplugged, &line->again, [this, line = line.get()] {
    if (!is_plugged_) return;
    Q_EMIT Closed(Description(*line));
    line->again.start();
  });
  line->line = std::move(pty);
  return Add(std::move(line), error);
}

}  // namespace VirtualPanel
