#include "RecordingUiService.h"

RecordingUiService::RecordingUiService() {
    ui::install(this);
}

RecordingUiService::~RecordingUiService() {
    ui::install(nullptr);
}

ui::Answer RecordingUiService::message(const ui::Message& message) {
    messages.append(message);
    return answers.isEmpty() ? message.defaultButton : answers.dequeue();
}

QString RecordingUiService::openFile(const QString& title, const QString& filter,
                                     const QString& startFolder) {
    fileRequests.append({title, filter, startFolder});
    return filesToOpen.isEmpty() ? QString() : filesToOpen.dequeue();
}

QString RecordingUiService::saveFile(const QString& title, const QString& filter,
                                     const QString& suggestedPath) {
    saveRequests.append({title, filter, suggestedPath});
    return filesToSave.isEmpty() ? QString() : filesToSave.dequeue();
}

QString RecordingUiService::chooseFolder(const QString& prompt) {
    folderPrompts.append(prompt);
    return foldersToChoose.isEmpty() ? QString() : foldersToChoose.dequeue();
}

bool RecordingUiService::choosePrinter(QPrinter&) {
    ++printerDialogs;
    return printerConfirmed;
}

void RecordingUiService::playSound(const QString& eventName) {
    sounds.append(eventName);
}

bool RecordingUiService::openAddress(const QString& address) {
    openedAddresses.append(address);
    return openAddressSucceeds;
}

bool RecordingUiService::startProgram(const QString& program, const QStringList& arguments) {
    startedPrograms.append(QStringList{program} + arguments);
    return true;
}

std::unique_ptr<ui::Progress> RecordingUiService::progress(const QString& title, qint64) {
    progressTitles.append(title);
    return ui::silentProgress();
}
