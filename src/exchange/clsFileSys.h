#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <QString>
#include <QStringList>
#include <memory>

#include "base/Error.h"

// The file helper: a current file to which lines are appended, and thin wrappers for the
// file operations the program needs.
//
// MaakRegel appends one line (in the ANSI code page, ending in CR LF) to the current
// file, creating it when missing. An export appends many thousands of lines, so the file
// stays open from the first MaakRegel until Sluiten, a new BestandsNaam or the end of the
// object; what ends up on disk is the same as opening and closing it for every line.
class clsFileSys {
public:
    clsFileSys() = default;
    ~clsFileSys();
    clsFileSys(const clsFileSys&) = delete;
    clsFileSys& operator=(const clsFileSys&) = delete;

    // Raises Error (75) when the file cannot be opened or written.
    void MaakRegel(const QString& line);
    // The same line as MaakRegel(fields.join(separator)) without building it first: a
    // long export spends its time here.
    void MaakRegel(const QStringList& fields, QChar separator);
    bool FileExists(const QString& path) const;
    const QString& BestandsNaam() const { return bestandsNaam_; }
    void setBestandsNaam(const QString& path);
    // The names of the files (not folders) in a folder, sorted by name.
    QStringList ListFilesInDirectory(const QString& folder) const;
    bool CreateFile(const QString& path);
    bool CopyFile(const QString& source, const QString& target);
    bool MoveFile(const QString& source, const QString& target);
    bool DeleteFile(const QString& path);
    bool CreateDirectory(const QString& path);
    bool DeleteDirectory(const QString& path);
    // Raise Error 53 when the file does not exist.
    qint64 FileSize(const QString& path) const;
    QDateTime FileDateTime(const QString& path) const;
    // A desktop entry (freedesktop .desktop file) at shortcutPath that starts target.
    bool CreateShortcut(const QString& target, const QString& shortcutPath,
                        const QString& name) const;

    // Writes what MaakRegel still holds and closes the current file. Raises Error (75)
    // when the bytes could not be written.
    void Sluiten();

private:
    void openForAppending();
    void endLine();
    void writePending();
    Error writeError() const;

    QString bestandsNaam_;
    std::unique_ptr<QFile> file_;
    QByteArray pending_;
};
