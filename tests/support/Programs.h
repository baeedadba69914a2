#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QProcess>
#include <QStringList>

// The id of a process that has ended: what a writer killed half way leaves in the names
// of its temporary files.
inline pid_t endedProcessId() {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
    return child;
}

// Runs a program to its end: its exit code, a blank and what it printed on standard output;
// with the errors also "|" and what it printed on standard error.
inline QString runProgram(const QString& program, const QStringList& arguments,
                          bool withErrors = false) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    QString printed = QString::number(process.exitCode()) + ' ' + process.readAllStandardOutput();
    if (withErrors) {
        printed += '|' + QString::fromUtf8(process.readAllStandardError());
    }
    return printed;
}
