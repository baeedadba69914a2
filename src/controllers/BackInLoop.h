#pragma once

#include <QObject>
#include <functional>

// Runs action once control is back in the event loop that is running now, as deleteLater()
// does: a nested loop started before that (a message box, a modal dialog, a field's check
// on leaving) does not run it. A controller that reports its own end from inside its
// operation is dropped this way, so no code of it or of its screen is still on the stack.
// Nothing runs when context has gone first.
void whenBackInLoop(QObject& context, std::function<void()> action);
