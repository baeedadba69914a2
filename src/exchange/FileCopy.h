#pragma once

#include <QString>

// Copies whole files so that the target is at every moment either its old self or the
// complete new copy: the bytes go to a temporary file beside the target, are flushed to
// the disk, and only then renamed over the target. A crash, a full disk or a cancelled
// progress dialog leaves the target as it was and no half file behind. After the rename the
// folder is flushed too, so that the new name survives a power cut.
namespace filecopy {

// With a progress title the copy shows a progress dialog (which keeps the window alive)
// and can be cancelled there. False when the copy did not complete.
bool copyReplacing(const QString& source, const QString& target,
                   const QString& progressTitle = QString());

// Writes bytes to target in the same way. False when the file could not be written whole.
bool writeReplacing(const QByteArray& bytes, const QString& target);

}  // namespace filecopy
