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

testing::AssertionResult RecordingUiService::lastMessageIs(const QString& text,
                                                           const QString& caption,
                                                           ui::Icon icon) const {
    return lastMessageMatches(text, true, caption, icon);
}

testing::AssertionResult RecordingUiService::lastMessageBegins(const QString& start,
                                                               const QString& caption,
                                                               ui::Icon icon) const {
    return lastMessageMatches(start, false, caption, icon);
}

testing::AssertionResult RecordingUiService::lastMessageMatches(const QString& text, bool wholeText,
                                                                const QString& caption,
                                                                ui::Icon icon) const {
    if (messages.isEmpty()) {
        return testing::AssertionFailure() << "no message was shown";
    }
    const ui::Message& shown = messages.last();
    const bool textMatches = wholeText ? shown.text == text : shown.text.startsWith(text);
    if (textMatches && shown.caption == caption && shown.icon == icon) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "shown: \"" << shown.text.toStdString() << "\" under \""
           << shown.caption.toStdString() << "\", icon " << static_cast<int>(shown.icon)
           << "\nwanted: \"" << text.toStdString() << (wholeText ? "\"" : "\"...") << " under \""
           << caption.toStdString() << "\", icon " << static_cast<int>(icon);
}
