#pragma once

#include <QVariant>

#include "store/Field.h"

// Turns a value assigned to a field into the field's own kind, by the classic rules:
// yes/no from numbers and from "True"/"False"/"Waar"/"Onwaar"; whole numbers rounded
// halves to even, with error 6 when they do not fit; texts read as numbers and dates in
// the regional notation; a text longer than its column raises error 3163 and a value
// that means nothing to the field error 13. Null stays Null.
namespace fields {

QVariant convert(const QVariant& value, const Field& field);

}  // namespace fields
