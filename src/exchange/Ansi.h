#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

// The ANSI code page of exported and imported text files: Windows-1252. Written out by
// hand rather than through QStringEncoder so that the bytes are the same on every build
// (with or without ICU) and a character 1252 cannot hold always becomes "?".
namespace ansi {

void append(QByteArray& target, QStringView text);
QByteArray encode(QStringView text);
QString decode(QByteArrayView bytes);

}  // namespace ansi
