#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <functional>

// Files the program hands to the user (backups, exports, a restored db.daa) appear under
// their name only when they are whole and on the disk. They are written under a temporary
// name beside the target, forced to the disk, renamed over the target, and then the folder
// itself is forced to the disk, so that the rename survives a power cut too.
//
// Every temporary name carries "~lindebrug-" and the process id of its writer; what a
// killed process left behind is recognised by that and removed later.
namespace durable {

// A fresh temporary name in the folder of target, for this process.
QString temporaryNameFor(const QString& target);
// Removes the temporary files in folder whose writer no longer runs (SQLite's journals
// of them included). Names of this process count as left by an earlier one: it is called
// before this process writes any.
void removeLeftovers(const QString& folder);

// Forces what was written to path, or the entries of a folder, to the disk.
bool syncFile(const QString& path);
bool syncFolder(const QString& folder);
// Renames temporary over target and forces the folder to the disk. On failure the
// temporary file is removed; reason (when given) says why.
bool publish(const QString& temporary, const QString& target, QString* reason = nullptr);

// Why the last file operation of this thread failed, in words, from errno.
QString systemReason(const QString& what, const QString& path);

// The steps of publishing and restoring are named here as they are passed, so tests can
// stop a process at each of them. Nothing listens in the program.
void step(const char* name);
void setStepObserverForTests(std::function<void(const char*)> observer);

// A file written in full or not at all: the bytes go to a temporary file, and commit()
// puts it under its name after every write, the flush and the close succeeded. A file
// that is not committed is removed when the object goes.
class PublishedFile {
public:
    explicit PublishedFile(QString target);
    ~PublishedFile();
    PublishedFile(const PublishedFile&) = delete;
    PublishedFile& operator=(const PublishedFile&) = delete;

    bool open();
    bool write(const QByteArray& bytes);
    bool commit();
    const QString& temporaryName() const { return temporary_; }
    // Why open, write or commit failed.
    const QString& failure() const { return failure_; }

private:
    bool fail(const QString& what);

    QString target_;
    QString temporary_;
    QFile file_;
    QString failure_;
    bool committed_ = false;
};

}  // namespace durable
