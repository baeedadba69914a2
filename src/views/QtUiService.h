#pragma once

#include <QPointer>
#include <QStringList>
#include <QWidget>

#include "base/UiService.h"

class QCoreApplication;

// The UI service of the running program: real message boxes, file, folder and printer
// dialogs, the system sound, the desktop's handlers for addresses, and progress dialogs.
// Dialogs are modal to the main window (or to the active window when none is set).
class QtUiService : public ui::Service {
public:
    explicit QtUiService(QWidget* window = nullptr);

    void setWindow(QWidget* window);

    ui::Answer message(const ui::Message& message) override;
    QString openFile(const QString& title, const QString& filter,
                     const QString& startFolder) override;
    QString chooseFolder(const QString& prompt) override;
    QString saveFile(const QString& title, const QString& filter,
                     const QString& suggestedPath) override;
    bool choosePrinter(QPrinter& printer) override;
    void playSound(const QString& eventName) override;
    bool openAddress(const QString& address) override;
    bool startProgram(const QString& program, const QStringList& arguments) override;
    std::unique_ptr<ui::Progress> progress(const QString& title, qint64 maximum) override;

    // "Tekst|*.txt|Alles|*.txt;*.csv" becomes {"Tekst (*.txt)", "Alles (*.txt *.csv)"}.
    static QStringList fileFilters(const QString& classicFilter);

    // Shown when a message has no caption of its own.
    static const QString programTitle;

private:
    QWidget* dialogParent() const;

    QPointer<QWidget> window_;
};

// Installs Qt's own Dutch texts (message-box buttons "Ja"/"Nee", the file, print and
// progress dialogs). False when the translation is not installed on this machine; the
// program then runs with Qt's English texts.
bool installDutchTranslations(QCoreApplication& application);
