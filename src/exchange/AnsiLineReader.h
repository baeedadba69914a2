#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

// Reads a text file line by line, in blocks, in time linear in its size. A line ends at
// CR LF, LF or a lone CR; the last line needs no line end. The text is in the ANSI code
// page, or UTF-8 when the file starts with UTF-8's byte order mark (as spreadsheets write
// it).
//
// Files that are no text are refused rather than stored: a line longer than the cap, a
// NUL byte, or UTF-16 raise Error with the line and what is wrong.
class AnsiLineReader {
public:
    static constexpr qsizetype kMaxLineBytes = 1024 * 1024;

    explicit AnsiLineReader(QFile& file) : file_(file) {}

    // False at the end of the file; raises Error when the file cannot be read or is no text.
    bool readLine(QString& line);
    // Bytes consumed so far, for progress.
    qint64 position() const { return consumed_; }

private:
    bool fill();
    void readEncoding();
    [[noreturn]] void refuse(const QString& problem) const;

    QFile& file_;
    QByteArray buffer_;
    qsizetype start_ = 0;    // first byte of the line being read
    qsizetype scanned_ = 0;  // bytes from start_ already known to hold no line end
    qint64 consumed_ = 0;
    qint64 lineNumber_ = 0;
    bool atEnd_ = false;
    bool started_ = false;
    bool utf8_ = false;
};
