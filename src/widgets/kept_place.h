// Controls that come and go while the others stand still.
#pragma once

class QWidget;

/// `control` keeps its place in the layout while it is hidden, so that nothing moves when it
/// appears.
void KeepPlaceWhenHidden(QWidget* control);
