#include "exchange/FileCopy.h"

#include <QFile>
#include <QFileInfo>
#include <memory>

#include "base/UiService.h"
#include "exchange/DurableFile.h"

#ifdef Q_OS_UNIX
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
        if (n >= 0) {
            return n;
        }
        if (errno != EXDEV && errno != ENOSYS && errno != EINVAL && errno != EOPNOTSUPP) {
            return -1;
        }
        kernelCopyWorks = false;
    }
#endif
    buffer.resize(kChunk);
    const qint64 n = source.read(buffer.data(), kChunk);
    if (n > 0 && target.write(buffer.constData(), n) != n) {
        return -1;
    }
    return n;
}

bool syncToDisk(QFile& file) {
    if (!file.flush()) {
        return false;
    }
#ifdef Q_OS_UNIX
    return ::fsync(file.handle()) == 0;
#else
    return true;
#endif
}

QFileDevice::Permissions permissionsFor(const QString& target) {
    const QFileInfo existing(target);
    if (existing.exists()) {
        return existing.permissions() | QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    }
    return QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup |
           QFileDevice::ReadOther;
}

bool copyContents(QFile& source, QFile& target, ui::Progress* progress) {
    QByteArray buffer;
    qint64 copied = 0;
    for (;;) {
        const qint64 n = copyChunk(source, target, buffer);
        if (n < 0) {
            return false;
        }
        if (n == 0) {
            return true;
        }
        copied += n;
        if (progress) {
            progress->setValue(copied);
            if (progress->wasCancelled()) {
                return false;
            }
        }
    }
}

}  // namespace

bool copyToTemporary(const QString& source, const QString& temporary, const QString& target,
                     const QString& progressTitle, QString* reason) {
    const auto failed = [&](const QString& what, const QString& path) {
        if (reason) {
            *reason = durable::systemReason(what, path);
        }
        QFile::remove(temporary);
        return false;
    };
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly)) {
        return failed(QStringLiteral("Kan niet lezen:"), source);
    }
    QFile out(temporary);
    if (!out.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        return failed(QStringLiteral("Kan niet schrijven naar"), target);
    }
    std::unique_ptr<ui::Progress> progress;
    if (!progressTitle.isEmpty()) {
        progress = ui::service().progress(progressTitle, in.size());
    }
    durable::step("copy");
    if (!copyContents(in, out, progress.get())) {
        const QString what = progress && progress->wasCancelled()
                                 ? QStringLiteral("Afgebroken: kopie naar")
                                 : QStringLiteral("Kan niet schrijven naar");
        return failed(what, target);
    }
    durable::step("sync");
    if (!syncToDisk(out)) {
        return failed(QStringLiteral("Kan niet vastleggen"), target);
    }
    out.setPermissions(permissionsFor(target));
    out.close();
    return true;
}

bool copyReplacing(const QString& source, const QString& target, const QString& progressTitle,
                   QString* reason) {
    const QString temporary = durable::temporaryNameFor(target);
    return copyToTemporary(source, temporary, target, progressTitle, reason) &&
           durable::publish(temporary, target, reason);
}

}  // namespace filecopy
