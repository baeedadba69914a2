#pragma once

#include <QString>
#include <functional>

// The error trap around every controller operation: runs op; when it raises an Error the
// user sees the translated message with the exclamation icon under the caption, and the
// operation counts as failed. Nothing escapes into the event loop.
bool trapped(const QString& caption, const std::function<void()>& op);
// The same under the program's caption, "KORVANE LINDEBRUG".
bool trapped(const std::function<void()>& op);
