#pragma once

#include <QString>
#include <stdexcept>

#include "base/ErrorNumbers.h"

// The one error type of the program: a number, the routine or engine it came from,
// and a description. Engine failures carry SQLite's result code; runtime conversions
// use the classic numbers (base/ErrorNumbers.h).
class Error : public std::exception, public ErrorNumbers {
public:
    Error(long number, QString source, QString description);

    long number() const { return number_; }
    const QString& source() const { return source_; }
    const QString& description() const { return description_; }
    const char* what() const noexcept override { return what_.constData(); }

    static Error overflow(const QString& source = QString());
    static Error typeMismatch(const QString& source = QString());
    static Error subscriptOutOfRange(const QString& source = QString());

private:
    long number_;
    QString source_;
    QString description_;
    QByteArray what_;
};
