#include "exchange/Ansi.h"

#include <array>

namespace ansi {
namespace {

// Bytes 0x80-0x9F. The five positions 1252 leaves undefined read as the C1 control
// character of the same value, as Windows reads them, so they survive a round trip.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char encodeOne(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) {
        return static_cast<char>(unit);
    }
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == unit) {
            return static_cast<char>(0x80 + i);
        }
    }
    return '?';
}

}  // namespace

void append(QByteArray& target, QStringView text) {
    const qsizetype start = target.size();
    target.resize(start + text.size());
    char* out = target.data() + start;
    qsizetype written = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        // A character outside the basic plane is two UTF-16 units but one "?".
        if (QChar::isHighSurrogate(unit) && i + 1 < text.size() &&
            QChar::isLowSurrogate(text[i + 1].unicode())) {
            ++i;
        }
        out[written++] = encodeOne(unit);
    }
    target.resize(start + written);
}

QByteArray encode(QStringView text) {
    QByteArray bytes;
    append(bytes, text);
    return bytes;
}

QString decode(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        out[i] = (byte >= 0x80 && byte < 0xA0) ? QChar(kHighControls[byte - 0x80]) : QChar(byte);
    }
    return text;
}

}  // namespace ansi
