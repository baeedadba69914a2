#pragma once

#include <functional>

// Runs work in a child process that is killed (SIGKILL) at its n-th kill point: every
// write, truncate, sync and delete that SQLite does on any file, and every step the
// program names while it publishes a file. The parent then looks at what is left on disk,
// as after a crash of the program or the machine at that moment.
namespace killpoints {

struct Outcome {
    bool killed = false;  // false: the work ran to its end before the n-th point
    int exitCode = 0;     // of a child that was not killed
};

// Forks, arms the kill points in the child, runs work there and ends the child with
// work's result (0 for true). killAt < 0: never killed; points are only counted.
Outcome runChild(int killAt, const std::function<bool()>& work);

}  // namespace killpoints
