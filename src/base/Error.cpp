#include "base/Error.h"

Error::Error(long number, QString source, QString description)
    : number_(number),
      source_(std::move(source)),
      description_(std::move(description)),
      what_(QStringLiteral("%1 - %2").arg(number_).arg(description_).toUtf8()) {}

Error Error::overflow(const QString& source) {
    return Error(Overflow, source, QStringLiteral("Overloop"));
}

Error Error::subscriptOutOfRange(const QString& source) {
    return Error(SubscriptOutOfRange, source, QStringLiteral("Subscript buiten bereik"));
}

Error Error::typeMismatch(const QString& source) {
    return Error(TypeMismatch, source, QStringLiteral("Typen komen niet overeen"));
}
