#include "exchange/AnsiLineReader.h"

#include "base/Error.h"
#include "exchange/Ansi.h"

namespace {

constexpr qint64 kBlock = 1024 * 1024;

// The first CR, LF or NUL in [from, end), or end.
const char* findStop(const char* from, const char* end) {
    for (; from < end; ++from) {
        if (*from == '\r' || *from == '\n' || *from == '\0') {
            return from;
        }
    }
    return end;
}

}  // namespace

// Appends the next block behind what is still unread; false when the file has no more.
// The bytes before start_ are dropped first; positions are kept relative to start_.
bool AnsiLineReader::fill() {
    if (atEnd_) {
        return false;
    }
    buffer_.remove(0, start_);
    start_ = 0;
    const qsizetype kept = buffer_.size();
    buffer_.resize(kept + kBlock);
    const qint64 n = file_.read(buffer_.data() + kept, kBlock);
    buffer_.resize(kept + qMax<qint64>(n, 0));
    if (n < 0) {
        throw Error(Error::DeviceIO, QStringLiteral("AnsiLineReader"),
                    QStringLiteral("Fout bij het lezen van %1 (%2)")
                        .arg(file_.fileName(), file_.errorString()));
    }
    if (n == 0) {
        atEnd_ = true;
    }
    return n > 0;
}

void AnsiLineReader::readEncoding() {
    started_ = true;
    fill();
    if (buffer_.startsWith("\xFF\xFE") || buffer_.startsWith("\xFE\xFF")) {
        refuse(
            QStringLiteral("het bestand is in UTF-16 opgeslagen; sla het op als ANSI- of "
                           "UTF-8-tekst"));
    }
    // A text file has no NUL byte; one in the first block marks a file that is no text, which
    // is refused before any of its lines is stored.
    if (buffer_.contains('\0')) {
        refuse(QStringLiteral("het bestand bevat NUL-tekens; het is geen tekstbestand"));
    }
    if (buffer_.startsWith("\xEF\xBB\xBF")) {
        utf8_ = true;
        start_ = 3;
        consumed_ = 3;
    }
}

void AnsiLineReader::refuse(const QString& problem) const {
    throw Error(Error::NotInExpectedFormat, QStringLiteral("AnsiLineReader"),
                QStringLiteral("Regel %1: %2.").arg(lineNumber_ + 1).arg(problem));
}

bool AnsiLineReader::readLine(QString& line) {
    if (!started_) {
        readEncoding();
    }
    qsizetype length = 0;  // of the line, without its end
    qsizetype endLength = 0;
    for (;;) {
        const char* begin = buffer_.constData() + start_;
        const char* end = buffer_.constData() + buffer_.size();
        const char* stop = findStop(begin + scanned_, end);
        scanned_ = stop - begin;
        if (scanned_ > kMaxLineBytes) {
            refuse(QStringLiteral("de regel is langer dan 1 MB; is het wel een tekstbestand?"));
        }
        if (stop < end && *stop == '\0') {
            refuse(QStringLiteral("de regel bevat een NUL-teken; het bestand is geen tekst"));
        }
        // A CR as the last byte read may be the first half of a CR LF.
        const bool needMore = stop == end || (*stop == '\r' && stop + 1 == end);
        if (needMore && fill()) {
            continue;
        }
        if (stop == end && scanned_ == 0) {
            return false;
        }
        length = scanned_;
        if (stop < end) {
            endLength = (*stop == '\r' && stop + 1 < end && stop[1] == '\n') ? 2 : 1;
        }
        break;
    }
    const QByteArrayView bytes(buffer_.constData() + start_, length);
    line = utf8_ ? QString::fromUtf8(bytes) : ansi::decode(bytes);
    start_ += length + endLength;
    consumed_ += length + endLength;
    scanned_ = 0;
    ++lineNumber_;
    return true;
}
