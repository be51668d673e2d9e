#include "support/panel_port.h"

class PanelPort::Line {};

PanelPort::PanelPort(VirtualPanel::PanelEngine* /*engine*/) {}

PanelPort::~PanelPort() = default;

bool PanelPort::Open(const QString& /*device*/) { return false; }

void PanelPort::Unplug() {}

bool PanelPort::IsPlugged() const { return false; }

bool PanelPort::IsInUse() const { return false; }
