#include <QDir>
#include <QFile>

#include "platform/ProcessList.h"

namespace {

bool isProcessId(const QString& folderName) {
    bool ok = false;
    folderName.toLongLong(&ok);
    return ok;
}

// comm ends in a line feed; a NUL can only come from a damaged entry, and what follows
// it is no part of the name.
QString nameIn(const QByteArray& comm) {
    const qsizetype end = comm.indexOf('\0');
    return QString::fromUtf8(end < 0 ? comm : comm.left(end)).trimmed();
}

}  // namespace

ProcProcessList::ProcProcessList(QString procFolder) : procFolder_(std::move(procFolder)) {}

QStringList ProcProcessList::names() const {
    QStringList result;
    const QDir proc(procFolder_);
    const QStringList entries = proc.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::NoSort);
    for (const QString& entry : entries) {
        if (!isProcessId(entry)) {
            continue;
        }
        // A process may end between the listing and the read; it is then simply not there.
        QFile comm(proc.filePath(entry + QStringLiteral("/comm")));
        if (comm.open(QIODevice::ReadOnly)) {
            result.append(nameIn(comm.readAll()));
        }
    }
    return result;
}
