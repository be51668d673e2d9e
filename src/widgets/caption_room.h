// The room of a window's captions.
#pragma once

class QWidget;

/// Whether the screen is too low for all controls of `window` at the widest. To be asked when it
/// has its captions, before it is shown.
bool IsScreenTooLow(QWidget& window);

/// Keeps `window`, whose controls stand in a layout, so large that none of its captions is cut:
/// it opens as large as they need, and cannot be made smaller than when they are wrapped. Where the
/// screen ends, the letters of the whole window get smaller. Called at the end of the window's
/// construction; does nothing to a window without a layout.
void GiveCaptionsRoom(QWidget* window);
