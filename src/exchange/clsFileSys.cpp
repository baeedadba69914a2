#include "exchange/clsFileSys.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include "exchange/Ansi.h"
#include "exchange/FileCopy.h"

namespace {

constexpr qsizetype kWriteThreshold = 256 * 1024;
constexpr long kPathFileAccessError = 75;

Error fileNotFound(const QString& path) {
    return Error(Error::FileNotFound, QStringLiteral("clsFileSys"),
                 QStringLiteral("Bestand niet gevonden: %1").arg(path));
}

// A desktop entry reads its values with string escapes, and Exec's arguments once more
// with quoting: a path survives only when both are applied.
QString quotedArgument(QString path) {
    for (const QChar special : {QChar('\\'), QChar('"'), QChar('`'), QChar('$')}) {
        path.replace(special, QStringLiteral("\\") + special);
    }
    return QLatin1Char('"') + path + QLatin1Char('"');
}

QString desktopString(QString value) {
    value.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    value.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
    value.replace(QLatin1Char('\t'), QStringLiteral("\\t"));
    value.replace(QLatin1Char('\r'), QStringLiteral("\\r"));
    return value;
}

}  // namespace

clsFileSys::~clsFileSys() {
    try {
        Sluiten();
    } catch (const Error&) {
        // Nobody is left to tell; an export checks Sluiten itself before it reports.
    }
}

void clsFileSys::setBestandsNaam(const QString& path) {
    if (path == bestandsNaam_) {
        return;
    }
    Sluiten();
    bestandsNaam_ = path;
}

void clsFileSys::MaakRegel(const QString& line) {
    openForAppending();
    ansi::append(pending_, line);
    endLine();
}

void clsFileSys::MaakRegel(const QStringList& fields, QChar separator) {
    openForAppending();
    const char separatorByte = ansi::encode(QStringView(&separator, 1)).front();
    for (qsizetype i = 0; i < fields.size(); ++i) {
        if (i > 0) {
            pending_.append(separatorByte);
        }
        ansi::append(pending_, fields[i]);
    }
    endLine();
}

void clsFileSys::openForAppending() {
    if (file_) {
        return;
    }
    file_ = std::make_unique<QFile>(bestandsNaam_);
    if (bestandsNaam_.isEmpty() || !file_->open(QIODevice::WriteOnly | QIODevice::Append)) {
        const Error failure = writeError();
        file_.reset();
        throw failure;
    }
}

void clsFileSys::endLine() {
    pending_.append("\r\n", 2);
    if (pending_.size() >= kWriteThreshold) {
        writePending();
    }
}

void clsFileSys::writePending() {
    if (file_->write(pending_) != pending_.size()) {
        const Error failure = writeError();
        pending_.clear();
        file_.reset();
        throw failure;
    }
    pending_.clear();
}

void clsFileSys::Sluiten() {
    if (!file_) {
        return;
    }
    writePending();
    const bool flushed = file_->flush();
    if (!flushed) {
        const Error failure = writeError();
        file_.reset();
        throw failure;
    }
    file_.reset();
}

Error clsFileSys::writeError() const {
    const QString reason = file_ ? file_->errorString() : QString();
    return Error(
        kPathFileAccessError, QStringLiteral("clsFileSys"),
        QStringLiteral("Kan niet schrijven naar bestand %1 (%2)").arg(bestandsNaam_, reason));
}

bool clsFileSys::FileExists(const QString& path) const {
    return !path.isEmpty() && QFileInfo::exists(path);
}

QStringList clsFileSys::ListFilesInDirectory(const QString& folder) const {
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

bool clsFileSys::CreateFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadWrite | QIODevice::Truncate);
}

bool clsFileSys::CopyFile(const QString& source, const QString& target) {
    return filecopy::copyReplacing(source, target);
}

bool clsFileSys::MoveFile(const QString& source, const QString& target) {
    return QFile::rename(source, target);
}

bool clsFileSys::DeleteFile(const QString& path) {
    return QFile::remove(path);
}

bool clsFileSys::CreateDirectory(const QString& path) {
    return QDir().mkdir(path);
}

bool clsFileSys::DeleteDirectory(const QString& path) {
    return QDir().rmdir(path);
}

qint64 clsFileSys::FileSize(const QString& path) const {
    const QFileInfo info(path);
    if (!info.isFile()) {
        throw fileNotFound(path);
    }
    return info.size();
}

QDateTime clsFileSys::FileDateTime(const QString& path) const {
    const QFileInfo info(path);
    if (!info.exists()) {
        throw fileNotFound(path);
    }
    return info.lastModified();
}

bool clsFileSys::CreateShortcut(const QString& target, const QString& shortcutPath,
                                const QString& name) const {
    const QFileInfo program(target);
    const QString entry =
        QStringLiteral(
            "[Desktop Entry]\nType=Application\nName=%1\n"
            "Exec=%2\nPath=%3\nTerminal=false\n")
            .arg(desktopString(name), desktopString(quotedArgument(program.absoluteFilePath())),
                 desktopString(program.absolutePath()));
    QSaveFile file(shortcutPath);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    file.write(entry.toUtf8());
    if (!file.commit()) {
        return false;
    }
    return QFile::setPermissions(shortcutPath, QFile::permissions(shortcutPath) |
                                                   QFileDevice::ExeOwner | QFileDevice::ExeUser);
}
