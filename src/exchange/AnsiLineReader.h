#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

// Reads a text file in the ANSI code page line by line, in blocks. A line ends at CR,
// CR LF or LF; the last line needs no line end.
class AnsiLineReader {
public:
    explicit AnsiLineReader(QFile& file) : file_(file) {}

    // False at the end of the file; raises Error when the file cannot be read.
    bool readLine(QString& line);
    // Bytes consumed so far, for progress.
    qint64 position() const { return consumed_; }

private:
    bool fill();

    QFile& file_;
    QByteArray buffer_;
    qsizetype start_ = 0;
    qint64 consumed_ = 0;
    bool atEnd_ = false;
};
