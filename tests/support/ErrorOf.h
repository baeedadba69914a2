#pragma once

#include "base/Error.h"

// The error an action raises; one numbered 0 when it raises none.
template <typename Action>
Error errorFrom(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error;
    }
    return Error(0, QString(), QString());
}

template <typename Action>
long errorOf(Action action) {
    return errorFrom(action).number();
}
