#include "support/panel_port.h"

#include "lines/pty_line.h"

class PanelPort::Line : public VirtualPanel::PtyLine {
  using PtyLine::PtyLine;
};

PanelPort::PanelPort(VirtualPanel::PanelEngine* engine) : line_(std::make_unique<Line>(engine)) {}

PanelPort::~PanelPort() = default;

bool PanelPort::Open(const QString& device) { return line_->Open(device); }

void PanelPort::Unplug() { line_->Unplug(); }

bool PanelPort::IsPlugged() const { return line_->IsPlugged(); }

bool PanelPort::IsInUse() const { return line_->IsInUse(); }
