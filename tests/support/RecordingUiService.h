#pragma once

#include <gtest/gtest.h>

#include <QList>
#include <QQueue>
#include <QString>
#include <QStringList>

#include "base/UiService.h"

// A UI service for tests: records every message and request, and answers from scripts.
// Installs itself on construction and restores the default on destruction.
class RecordingUiService : public ui::Service {
public:
    RecordingUiService();
    ~RecordingUiService() override;

    // Scripted answers, used in order; when a script runs out the default button answers
    // a message and dialogs are cancelled.
    QQueue<ui::Answer> answers;
    QQueue<QString> filesToOpen;
    QQueue<QString> foldersToChoose;
    QQueue<QString> filesToSave;
    bool printerConfirmed = false;
    bool openAddressSucceeds = true;

    // What the program asked.
    QList<ui::Message> messages;
    struct FileRequest {
        QString title, filter, startFolder;
    };
    QList<FileRequest> fileRequests;
    QStringList folderPrompts;
    QList<FileRequest> saveRequests;
    QStringList sounds;
    QStringList openedAddresses;
    QList<QStringList> startedPrograms;  // program followed by its arguments
    QStringList progressTitles;
    int printerDialogs = 0;

    const ui::Message& lastMessage() const { return messages.last(); }
    // Whether the last message had exactly this text (or, with the second, a text that
    // begins so), caption and icon; the failure names what was shown instead.
    testing::AssertionResult lastMessageIs(const QString& text, const QString& caption,
                                           ui::Icon icon) const;
    testing::AssertionResult lastMessageBegins(const QString& start, const QString& caption,
                                               ui::Icon icon) const;

    ui::Answer message(const ui::Message& message) override;
    QString openFile(const QString& title, const QString& filter,
                     const QString& startFolder) override;
    QString saveFile(const QString& title, const QString& filter,
                     const QString& suggestedPath) override;
    QString chooseFolder(const QString& prompt) override;
    bool choosePrinter(QPrinter& printer) override;
    void playSound(const QString& eventName) override;
    bool openAddress(const QString& address) override;
    bool startProgram(const QString& program, const QStringList& arguments) override;
    std::unique_ptr<ui::Progress> progress(const QString& title, qint64 maximum) override;

private:
    testing::AssertionResult lastMessageMatches(const QString& text, bool wholeText,
                                                const QString& caption, ui::Icon icon) const;
};
