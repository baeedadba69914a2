#include "KillPoints.h"

#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include "exchange/DurableFile.h"

namespace killpoints {
namespace {

int killAt = -1;
int passed = 0;

void point() {
    if (killAt >= 0 && passed++ == killAt) {
        ::kill(::getpid(), SIGKILL);
    }
}

// A file of the shim: SQLite's own file object follows it in the same allocation.
struct ShimFile {
    sqlite3_file base;
};

sqlite3_vfs* real = nullptr;
sqlite3_vfs shim;

sqlite3_file* inner(sqlite3_file* file) {
    return reinterpret_cast<sqlite3_file*>(reinterpret_cast<ShimFile*>(file) + 1);
}

int shimClose(sqlite3_file* f) {
    return inner(f)->pMethods->xClose(inner(f));
}
int shimRead(sqlite3_file* f, void* data, int n, sqlite3_int64 offset) {
    return inner(f)->pMethods->xRead(inner(f), data, n, offset);
}
int shimWrite(sqlite3_file* f, const void* data, int n, sqlite3_int64 offset) {
    point();
    return inner(f)->pMethods->xWrite(inner(f), data, n, offset);
}
int shimTruncate(sqlite3_file* f, sqlite3_int64 size) {
    point();
    return inner(f)->pMethods->xTruncate(inner(f), size);
}
int shimSync(sqlite3_file* f, int flags) {
    point();
    return inner(f)->pMethods->xSync(inner(f), flags);
}
int shimFileSize(sqlite3_file* f, sqlite3_int64* size) {
    return inner(f)->pMethods->xFileSize(inner(f), size);
}
int shimLock(sqlite3_file* f, int level) {
    return inner(f)->pMethods->xLock(inner(f), level);
}
int shimUnlock(sqlite3_file* f, int level) {
    return inner(f)->pMethods->xUnlock(inner(f), level);
}
int shimCheckReservedLock(sqlite3_file* f, int* out) {
    return inner(f)->pMethods->xCheckReservedLock(inner(f), out);
}
int shimFileControl(sqlite3_file* f, int op, void* arg) {
    return inner(f)->pMethods->xFileControl(inner(f), op, arg);
}
int shimSectorSize(sqlite3_file* f) {
    return inner(f)->pMethods->xSectorSize(inner(f));
}
int shimDeviceCharacteristics(sqlite3_file* f) {
    return inner(f)->pMethods->xDeviceCharacteristics(inner(f));
}

// Version 1: no shared memory and no memory mapping, which a rollback journal needs not.
const sqlite3_io_methods shimMethods = [] {
    sqlite3_io_methods methods{};
    methods.iVersion = 1;
    methods.xClose = shimClose;
    methods.xRead = shimRead;
    methods.xWrite = shimWrite;
    methods.xTruncate = shimTruncate;
    methods.xSync = shimSync;
    methods.xFileSize = shimFileSize;
    methods.xLock = shimLock;
    methods.xUnlock = shimUnlock;
    methods.xCheckReservedLock = shimCheckReservedLock;
    methods.xFileControl = shimFileControl;
    methods.xSectorSize = shimSectorSize;
    methods.xDeviceCharacteristics = shimDeviceCharacteristics;
    return methods;
}();

int shimOpen(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    const int rc = real->xOpen(real, name, inner(file), flags, outFlags);
    file->pMethods = inner(file)->pMethods ? &shimMethods : nullptr;
    return rc;
}

int shimDelete(sqlite3_vfs*, const char* name, int syncDir) {
    point();
    return real->xDelete(real, name, syncDir);
}

void arm(int at) {
    killAt = at;
    passed = 0;
    real = sqlite3_vfs_find(nullptr);
    shim = *real;
    shim.zName = "killpoints";
    shim.szOsFile = static_cast<int>(sizeof(ShimFile)) + real->szOsFile;
    shim.xOpen = shimOpen;
    shim.xDelete = shimDelete;
    sqlite3_vfs_register(&shim, 1);
    durable::setStepObserverForTests([](const char*) { point(); });
}

}  // namespace

Outcome runChild(int at, const std::function<bool()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        arm(at);
        ::_exit(work() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    Outcome outcome;
    outcome.killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    outcome.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

}  // namespace killpoints
