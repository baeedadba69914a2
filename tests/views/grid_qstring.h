#pragma once

#include <QString>
#include <ostream>

// Readable texts in the messages of failed expectations.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
