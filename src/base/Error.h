#pragma once

#include <QString>
#include <stdexcept>

// The one error type of the program: a number, the routine or engine it came from,
// and a description. Engine failures carry SQLite's result code; runtime conversions
// use the classic numbers below.
class Error : public std::exception {
public:
    enum Number : long {
        Overflow = 6,
        SubscriptOutOfRange = 9,
        TypeMismatch = 13,
        FileNotFound = 53,
        NoCurrentRecord = 3021,
        ItemNotFound = 3265,
        FieldTooSmall = 3163,
        DialogCancelled = 32755,
    };

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
