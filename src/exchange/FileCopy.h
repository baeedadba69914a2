#pragma once

#include <QString>

// Copies whole files so that the target is at every moment either its old self or the
// complete new copy: the bytes go to a temporary file beside the target, are flushed to
// the disk, and only then renamed over the target. A crash, a full disk or a cancelled
// progress dialog leaves the target as it was and no half file behind. After the rename the
// folder is flushed too, so that the new name survives a power cut.
namespace filecopy {

// With a progress title the copy shows a progress dialog (which keeps the window alive)
// and can be cancelled there. False when the copy did not complete; reason says why.
bool copyReplacing(const QString& source, const QString& target,
                   const QString& progressTitle = QString(), QString* reason = nullptr);

// The first half of copyReplacing: source copied to the new file temporary (a name of
// durable::temporaryNameFor) and forced to the disk, with the permissions target has or
// would get. On failure nothing is left at temporary.
bool copyToTemporary(const QString& source, const QString& temporary, const QString& target,
                     const QString& progressTitle, QString* reason);

}  // namespace filecopy
