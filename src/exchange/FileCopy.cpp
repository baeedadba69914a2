#include "exchange/FileCopy.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <filesystem>
#include <memory>

#include "base/UiService.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace filecopy {
namespace {

constexpr qint64 kChunk = 8 * 1024 * 1024;

// One chunk from source to target; the number of bytes copied, 0 at the end, -1 on error.
// On Linux the kernel copies without a trip through user space, as cp does.
qint64 copyChunk(QFile& source, QFile& target, QByteArray& buffer) {
#ifdef Q_OS_LINUX
    static bool kernelCopyWorks = true;
    if (kernelCopyWorks) {
        const ssize_t n =
            ::copy_file_range(source.handle(), nullptr, target.handle(), nullptr, kChunk, 0);
        if (n >= 0)
            return n;
        if (errno != EXDEV && errno != ENOSYS && errno != EINVAL && errno != EOPNOTSUPP)
            return -1;
        kernelCopyWorks = false;
    }
#endif
    buffer.resize(kChunk);
    const qint64 n = source.read(buffer.data(), kChunk);
    if (n > 0 && target.write(buffer.constData(), n) != n)
        return -1;
    return n;
}

bool syncToDisk(QFile& file) {
    if (!file.flush())
        return false;
#ifdef Q_OS_UNIX
    return ::fsync(file.handle()) == 0;
#else
    return true;
#endif
}

QFileDevice::Permissions permissionsFor(const QString& target) {
    const QFileInfo existing(target);
    if (existing.exists())
        return existing.permissions() | QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    return QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup |
           QFileDevice::ReadOther;
}

bool syncFolderOf(const QString& target) {
#ifdef Q_OS_UNIX
    const int folder = ::open(QFile::encodeName(QFileInfo(target).absolutePath()).constData(),
                              O_RDONLY | O_DIRECTORY);
    if (folder < 0)
        return false;
    const bool synced = ::fsync(folder) == 0;
    ::close(folder);
    return synced;
#else
    return true;
#endif
}

std::filesystem::path localPath(const QString& path) {
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

bool copyContents(QFile& source, QFile& target, ui::Progress* progress) {
    QByteArray buffer;
    qint64 copied = 0;
    for (;;) {
        const qint64 n = copyChunk(source, target, buffer);
        if (n < 0)
            return false;
        if (n == 0)
            return true;
        copied += n;
        if (progress) {
            progress->setValue(copied);
            if (progress->wasCancelled())
                return false;
        }
    }
}

// Gives the complete temporary file the target's name.
bool publish(QTemporaryFile& out, const QString& target) {
    if (!syncToDisk(out))
        return false;
    out.setPermissions(permissionsFor(target));
    out.close();
    std::error_code failed;
    std::filesystem::rename(localPath(out.fileName()), localPath(target), failed);
    if (failed)
        return false;
    out.setAutoRemove(false);
    return syncFolderOf(target);
}

}  // namespace

bool copyReplacing(const QString& source, const QString& target, const QString& progressTitle) {
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly))
        return false;
    QTemporaryFile out(target + QStringLiteral(".XXXXXX.tmp"));
    if (!out.open())
        return false;
    std::unique_ptr<ui::Progress> progress;
    if (!progressTitle.isEmpty())
        progress = ui::service().progress(progressTitle, in.size());
    return copyContents(in, out, progress.get()) && publish(out, target);
}

bool writeReplacing(const QByteArray& bytes, const QString& target) {
    QTemporaryFile out(target + QStringLiteral(".XXXXXX.tmp"));
    return out.open() && out.write(bytes) == bytes.size() && publish(out, target);
}

}  // namespace filecopy
