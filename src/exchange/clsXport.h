#pragma once

#include <QString>

class Error;
class Recordset;

// What an error of the engine or of a file means to the user, for the reason of a failure.
QString failureText(const Error& error);

// CSV export and import of the registers: ";"-separated text in the ANSI code page,
// CR LF after every line, no quoting.
class clsXport {
public:
    // Writes table (or "FactArt", the invoice overview) to folder + (fileName or table) +
    // "." + extension. folder gains a final separator when it has none; the caller sees
    // that. Asks before replacing an existing file, which stays until the new one is whole.
    // False when nothing was exported: an unknown or empty table, a declined question, a
    // failed query or write; then no new file is left behind.
    bool Xport(const QString& table, const QString& extension, QString& folder,
               const QString& fileName);
    // The folder picker; the empty text when the user cancels.
    QString BrowseForFolder(const QString& prompt);
    // The path of a special folder by its classic CSIDL number (0 desktop, 5 documents,
    // 26 application data, ...); the empty text for a number the platform has no folder for.
    QString GetSpecialfolder(int id);

    // Appends every line of the file at path to table as a new row. False when the table
    // name is empty or the file is missing; a line the database refuses raises its Error,
    // after the rows of the earlier lines have been stored.
    bool Mport(const QString& table, const QString& path);

    // Why the last Xport or Mport returned false (a refused line raises its Error instead).
    const QString& failure() const { return failure_; }

private:
    bool fail(const QString& reason);
    bool exportTable(const QString& table, const QString& path);
    bool exportInvoiceOverview(const QString& path);

    QString failure_;
};
