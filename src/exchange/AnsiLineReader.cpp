#include "exchange/AnsiLineReader.h"

#include "base/Error.h"
#include "exchange/Ansi.h"

namespace {

constexpr qint64 kBlock = 1024 * 1024;

qsizetype findLineEnd(const QByteArray& buffer, qsizetype from) {
    for (qsizetype i = from; i < buffer.size(); ++i) {
        if (buffer[i] == '\r' || buffer[i] == '\n')
            return i;
    }
    return -1;
}

}  // namespace

// Appends the next block behind what is still unread; false when the file has no more.
bool AnsiLineReader::fill() {
    if (atEnd_)
        return false;
    buffer_.remove(0, start_);
    start_ = 0;
    const QByteArray block = file_.read(kBlock);
    if (block.isEmpty() && file_.error() != QFileDevice::NoError)
        throw Error(Error::DeviceIO, QStringLiteral("AnsiLineReader"),
                    QStringLiteral("Fout bij het lezen van %1 (%2)")
                        .arg(file_.fileName(), file_.errorString()));
    if (block.isEmpty()) {
        atEnd_ = true;
        return false;
    }
    buffer_.append(block);
    return true;
}

bool AnsiLineReader::readLine(QString& line) {
    qsizetype end = findLineEnd(buffer_, start_);
    while (end < 0 || (buffer_[end] == '\r' && end + 1 == buffer_.size())) {
        // A CR at the end of the block may be the first half of a CR LF.
        if (!fill())
            break;
        end = findLineEnd(buffer_, start_);
    }
    if (end < 0) {
        if (start_ >= buffer_.size())
            return false;
        end = buffer_.size();
    }
    line = ansi::decode(QByteArrayView(buffer_).sliced(start_, end - start_));
    qsizetype next = end;
    if (next < buffer_.size())
        next += (buffer_[next] == '\r' && next + 1 < buffer_.size() && buffer_[next + 1] == '\n')
                    ? 2
                    : 1;
    consumed_ += next - start_;
    start_ = next;
    return true;
}
