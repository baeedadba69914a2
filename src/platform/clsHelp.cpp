#include "platform/clsHelp.h"

#include <QFileInfo>
#include <QLibraryInfo>
#include <algorithm>

#include "base/Paths.h"
#include "base/ProgramFolder.h"
#include "base/UiService.h"
#include "platform/ProcessList.h"

namespace {

const ProcessList& runningProcesses() {
    static const ProcProcessList system;
    return system;
}

QString inProgramFolder(const QString& name) {
    return paths::withSeparator(ProgramFolder::path()) + name;
}

}  // namespace

clsHelp::clsHelp() : processes_(&runningProcesses()) {}

clsHelp::clsHelp(const ProcessList& processes) : processes_(&processes) {}

QString clsHelp::viewerProgram() {
    return QLibraryInfo::path(QLibraryInfo::BinariesPath) + QStringLiteral("/assistant");
}

QString clsHelp::collectionFile() {
    return inProgramFolder(QStringLiteral("Lindebrug.qhc"));
}

QString clsHelp::helpFile() {
    return inProgramFolder(QStringLiteral("Lindebrug.qch"));
}

QString clsHelp::pageUrl(const QString& page) {
    return QStringLiteral("qthelp://" LINDEBRUG_HELP_NAMESPACE "/doc/") + page;
}

// Any running viewer counts, even one showing another manual: starting a second one would
// only put a window on top of the user's work.
bool clsHelp::viewerRuns() const {
    const QStringList names = processes_->names();
    return std::any_of(names.cbegin(), names.cend(), [](const QString& name) {
        return name.toLower() == QStringLiteral("assistant");
    });
}

void clsHelp::ToonHelpPagina(const QString& page) const {
    if (!QFileInfo::exists(helpFile()) || !QFileInfo::exists(collectionFile())) {
        ui::message(QStringLiteral("Helpbestand niet gevonden"), QString(), ui::Icon::Information);
        return;
    }
    if (viewerRuns()) {
        return;
    }
    // A viewer that fails to start is not reported: the user simply sees no manual.
    ui::service().startProgram(viewerProgram(),
                               {QStringLiteral("-collectionFile"), collectionFile(),
                                QStringLiteral("-showUrl"), pageUrl(page)});
}
