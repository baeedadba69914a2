#pragma once

class QWidget;

// Every screen reopens where the user left it: the size and place of the screen's window
// (its MDI sub-window when it sits in the frame) are restored when it is first shown and
// saved whenever it is hidden or closed, under the screen's objectName. A saved place
// that no screen shows any more is not restored, so a window never opens out of sight; in
// the frame a screen never opens larger than the frame.
void rememberGeometry(QWidget* screen);
