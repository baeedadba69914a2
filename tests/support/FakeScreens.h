#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <memory>

// Makes a fake screen for a controller, which owns it, and keeps a pointer to it in `last`
// so that the test can look at it and play the user.
template <class Fake>
std::unique_ptr<Fake> makeKept(Fake*& last) {
    auto made = std::make_unique<Fake>();
    last = made.get();
    return made;
}

// Control back in the program's loop: what waits for it (a closed screen going) has run.
inline void settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
