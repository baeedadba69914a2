#pragma once

#include <QString>

class ProcessList;

// Opens the program's manual at a page. The manual is Lindebrug.qch with its collection
// Lindebrug.qhc in the program folder; the viewer is Qt Assistant.
class clsHelp {
public:
    // Looks at the processes running on this machine.
    clsHelp();
    // Looks at the given list instead; it must outlive this object.
    explicit clsHelp(const ProcessList& processes);

    // Shows "Helpbestand niet gevonden" when the manual is missing. While a viewer runs
    // nothing is started: the open viewer is left as it is.
    void ToonHelpPagina(const QString& page) const;

    static QString viewerProgram();
    static QString collectionFile();
    static QString helpFile();
    // The address of a page inside the manual, as the viewer takes it.
    static QString pageUrl(const QString& page);

private:
    bool viewerRuns() const;

    const ProcessList* processes_;
};
