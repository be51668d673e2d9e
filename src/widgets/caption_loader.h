// Gives a window the captions of the language file, and the room that they need.
#pragma once

class QWidget;

/// Replaces the captions, list entries and dialog titles of `window`, which is found in the caption
/// tables by its objectName ("frmPage"), and then its further captions, tool tips and accessible
/// names; called at the end of the window's construction. Replaces nothing unless the language flag
/// is set, and nothing in a window without a table. A text that the language file lacks stays as it
/// was. In any language, the captions get their room (GiveCaptionsRoom()), and the window the keys
/// that all windows have (GiveWindowKeys()).
void LoadCaptions(QWidget* window);
