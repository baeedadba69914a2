#include "exchange/DurableFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <cerrno>
#include <cstring>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>
#endif

namespace durable {
namespace {

const QLatin1String kMarker("~lindebrug-");

std::function<void(const char*)>& observer() {
    static std::function<void(const char*)> current;
    return current;
}

// The writer's process id out of a temporary name, 0 when the name is not one of ours.
qint64 writerOf(const QString& fileName) {
    static const QRegularExpression pattern(QStringLiteral("~lindebrug-(\\d+)-[0-9a-f]+\\.tmp"));
    const QRegularExpressionMatch match = pattern.match(fileName);
    return match.hasMatch() ? match.captured(1).toLongLong() : 0;
}

bool stillRunning(qint64 pid) {
    if (pid == QCoreApplication::applicationPid()) {
        return false;  // a name of ours from before this process used the same id
    }
#ifdef Q_OS_UNIX
    return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
#else
    return false;
#endif
}

QString errnoText(int code) {
    switch (code) {
        case ENOSPC:
#ifdef EDQUOT
        case EDQUOT:
#endif
            return QStringLiteral("de schijf is vol");
        case EFBIG:
            return QStringLiteral("het bestand wordt te groot");
        case EACCES:
        case EPERM:
            return QStringLiteral("geen toegang");
        case EROFS:
            return QStringLiteral("de schijf is alleen-lezen");
        case ENOENT:
            return QStringLiteral("de map of het bestand bestaat niet");
        case EIO:
            return QStringLiteral("de schijf meldt een fout");
        default:
            return QString::fromLocal8Bit(std::strerror(code));
    }
}

#ifdef Q_OS_UNIX
bool syncPath(const QString& path, int flags) {
    const int fd = ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    const bool synced = ::fsync(fd) == 0;
    const int saved = errno;
    ::close(fd);
    errno = saved;
    return synced;
}
#endif

bool syncHandle(int fd) {
#ifdef Q_OS_UNIX
    return ::fsync(fd) == 0;
#else
    return fd >= 0;
#endif
}

}  // namespace

QString temporaryNameFor(const QString& target) {
    const QFileInfo info(target);
    const QString name = info.fileName() + kMarker +
                         QString::number(QCoreApplication::applicationPid()) + QLatin1Char('-') +
                         QString::number(QRandomGenerator::global()->generate(), 16) +
                         QStringLiteral(".tmp");
    return info.dir().filePath(name);
}

void removeLeftovers(const QString& folder) {
    const QDir dir(folder);
    const QStringList names = dir.entryList({QStringLiteral("*") + kMarker + QStringLiteral("*")},
                                            QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : names) {
        const qint64 writer = writerOf(name);
        if (writer != 0 && !stillRunning(writer)) {
            QFile::remove(dir.filePath(name));
        }
    }
}

bool syncFile(const QString& path) {
#ifdef Q_OS_UNIX
    return syncPath(path, O_RDONLY);
#else
    return QFileInfo::exists(path);
#endif
}

bool syncFolder(const QString& folder) {
#ifdef Q_OS_UNIX
    return syncPath(folder, O_RDONLY | O_DIRECTORY);
#else
    return true;
#endif
}

bool publish(const QString& temporary, const QString& target, QString* reason) {
    step("rename");
    if (::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(target).constData()) !=
        0) {
        if (reason) {
            *reason = systemReason(QStringLiteral("Kan niet hernoemen naar"), target);
        }
        QFile::remove(temporary);
        return false;
    }
    step("folder");
    if (!syncFolder(QFileInfo(target).absolutePath())) {
        // The file is complete under its name; only the guarantee for a power cut in the
        // next moments is missing, which is no reason to take the file away again.
        if (reason) {
            *reason = systemReason(QStringLiteral("Kan de map niet vastleggen van"), target);
        }
        return false;
    }
    return true;
}

QString systemReason(const QString& what, const QString& path) {
    return what + QLatin1Char(' ') + QDir::toNativeSeparators(path) + QStringLiteral(": ") +
           errnoText(errno);
}

void step(const char* name) {
    if (observer()) {
        observer()(name);
    }
}

void setStepObserverForTests(std::function<void(const char*)> listener) {
    observer() = std::move(listener);
}

PublishedFile::PublishedFile(QString target)
    : target_(std::move(target)), temporary_(temporaryNameFor(target_)) {}

PublishedFile::~PublishedFile() {
    if (committed_) {
        return;
    }
    file_.close();
    QFile::remove(temporary_);
}

bool PublishedFile::open() {
    file_.setFileName(temporary_);
    // Unbuffered: every write reaches the system at once, so its failure is seen where it
    // happens, with the system's reason.
    if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        return fail(QStringLiteral("Kan niet schrijven naar"));
    }
    return true;
}

bool PublishedFile::write(const QByteArray& bytes) {
    step("write");
    if (file_.write(bytes) != bytes.size()) {
        return fail(QStringLiteral("Kan niet schrijven naar"));
    }
    return true;
}

bool PublishedFile::commit() {
    step("sync");
    if (!file_.flush() || !syncHandle(file_.handle())) {
        return fail(QStringLiteral("Kan niet vastleggen"));
    }
    file_.close();
    if (file_.error() != QFileDevice::NoError) {
        return fail(QStringLiteral("Kan niet sluiten"));
    }
    committed_ = true;
    return publish(temporary_, target_, &failure_);
}

bool PublishedFile::fail(const QString& what) {
    failure_ = systemReason(what, target_);
    file_.close();
    QFile::remove(temporary_);
    return false;
}

}  // namespace durable
