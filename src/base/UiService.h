#pragma once

#include <QString>
#include <QStringList>
#include <memory>

class QPrinter;

// Everything the program asks of the user or of the desktop goes through this one
// interface: message boxes, file and folder dialogs, the printer dialog, the system
// sound, opening an address or a program, and progress of long work. The program
// installs the Qt implementation; tests install a recorder with scripted answers.
namespace ui {

// The caption of the frame and of the program's messages.
inline const QString kProgramCaption = QStringLiteral("KORVANE LINDEBRUG");

enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel };
enum class Answer { Ok, Cancel, Yes, No, Retry };

struct Message {
    QString text;
    QString caption;  // empty: the program's own title
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    Answer defaultButton = Answer::Ok;
};

// Progress of a long piece of work. Keeps the window alive while it is shown.
class Progress {
public:
    virtual ~Progress() = default;
    virtual void setValue(qint64 value) = 0;
    virtual bool wasCancelled() const = 0;
};

// Progress that shows nothing, for work done where nobody watches.
std::unique_ptr<Progress> silentProgress();

class Service {
public:
    virtual ~Service() = default;

    virtual Answer message(const Message& message) = 0;

    // filter in the classic form "tekstbestanden|*.txt|csv-bestanden|*.csv";
    // the chosen path, or an empty text when the user cancels.
    virtual QString openFile(const QString& title, const QString& filter,
                             const QString& startFolder) = 0;
    // The path to save under, or an empty text when the user cancels; the dialog asks
    // before an existing file is replaced.
    virtual QString saveFile(const QString& title, const QString& filter,
                             const QString& suggestedPath) {
        return QString();
    }
    // The chosen folder, or an empty text when the user cancels.
    virtual QString chooseFolder(const QString& prompt) = 0;
    // True when the user confirmed the dialog; the printer then holds the choice.
    virtual bool choosePrinter(QPrinter& printer) = 0;

    virtual void playSound(const QString& eventName) = 0;
    // Opens an address with the program associated with it; false when there is none.
    virtual bool openAddress(const QString& address) = 0;
    virtual bool startProgram(const QString& program, const QStringList& arguments) = 0;

    virtual std::unique_ptr<Progress> progress(const QString& title, qint64 maximum) = 0;
};

Service& service();
// The service stays owned by the caller; passing nullptr restores the silent default,
// which answers every question with its default button.
void install(Service* service);

// Shorthand for the common case.
Answer message(const QString& text, const QString& caption = QString(), Icon icon = Icon::None,
               Buttons buttons = Buttons::Ok, Answer defaultButton = Answer::Ok);

}  // namespace ui
