// The window that the hands are at, and the names of its controls.
#pragma once

#include <QString>
#include <QWidget>

/// What takes keys and clicks: an open list or menu, else the modal window on top, else the
/// launcher; null where no window is open.
QWidget* Front();

/// The file dialog that takes keys and clicks, itself or a list of its own; null without one.
QWidget* FileDialogInFront();

/// Whether a window of the program is sending.
bool IsSending();

/// "frmMsgEditor/butNew"; a control without a name of its own is counted among those of its class.
/// The window itself: "frmMsgEditor/".
QString PathOf(const QWidget* control);

/// The control of this path in the window in front; null where there is none now.
QWidget* ControlAt(const QString& path);

/// The controls of the window in front that can be seen and used.
QList<QWidget*> ControlsInFront();
