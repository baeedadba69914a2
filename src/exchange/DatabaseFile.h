#pragma once

#include <QString>

// Backup and restore of a database file that may be in use, or may have been left by a
// crash with a hot journal beside it.
//
// A backup is a copy of the file's bytes made under SQLite's shared lock, after a hot
// journal was played back, so it is always one committed state of the database; the copy
// is checked before it gets its name.
//
// A restore never lets the journal of the replaced database meet the restored file: the
// old database is brought to its last committed state (its journal played back and gone)
// before the new file takes its name. The replaced database stays beside it as
// "<name>.vorige".
namespace dbfile {

// Each sets reason when it fails (and returns false).
bool backup(const QString& database, const QString& target, const QString& progressTitle,
            QString* reason);
bool restore(const QString& source, const QString& database, const QString& progressTitle,
             QString* reason);

// A SQLite file that passes the quick check and holds the six tables of the program.
bool isProgramDatabase(const QString& path, QString* reason);

// Plays a hot journal of database back (or removes a journal that belongs to no
// database) so that no journal is left beside it.
bool settleJournal(const QString& database, QString* reason);

QString previousName(const QString& database);
QString journalName(const QString& database);

}  // namespace dbfile
