#pragma once

#include <QString>
#include <QStringList>

// The names of the programs running on this machine. The help launcher asks it whether the
// help viewer is already open.
class ProcessList {
public:
    virtual ~ProcessList() = default;

    // The executable name of every running process, in the order the system lists them.
    virtual QStringList names() const = 0;
};

// The running processes as Linux shows them under /proc (the name in /proc/<pid>/comm).
class ProcProcessList : public ProcessList {
public:
    explicit ProcProcessList(QString procFolder = QStringLiteral("/proc"));

    QStringList names() const override;

private:
    QString procFolder_;
};
