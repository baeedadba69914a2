#pragma once

// Wall-clock timing shared by the screen benchmarks.
#include <QElapsedTimer>
#include <QList>
#include <algorithm>

template <typename Work>
double milliseconds(Work work) {
    QElapsedTimer clock;
    clock.start();
    work();
    return clock.nsecsElapsed() / 1e6;
}

// The middle of the times: one slow run on a shared machine does not move it.
inline double median(QList<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}
