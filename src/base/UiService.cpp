#include "base/UiService.h"

namespace ui {

namespace {

class SilentProgress : public Progress {
public:
    void setValue(qint64) override {}
    bool wasCancelled() const override { return false; }
};

}  // namespace

std::unique_ptr<Progress> silentProgress() {
    return std::make_unique<SilentProgress>();
}

namespace {

// Until the program installs its own, questions get their default answer and dialogs
// are cancelled, so nothing below the screens can block on a user who is not there.
class SilentService : public Service {
public:
    Answer message(const Message& message) override { return message.defaultButton; }
    QString openFile(const QString&, const QString&, const QString&) override { return {}; }
    QString chooseFolder(const QString&) override { return {}; }
    bool choosePrinter(QPrinter&) override { return false; }
    void playSound(const QString&) override {}
    bool openAddress(const QString&) override { return false; }
    bool startProgram(const QString&, const QStringList&) override { return false; }
    std::unique_ptr<Progress> progress(const QString&, qint64) override { return silentProgress(); }
};

SilentService silent;
Service* installed = &silent;

}  // namespace

Service& service() {
    return *installed;
}

void install(Service* service) {
    installed = service ? service : &silent;
}

Answer message(const QString& text, const QString& caption, Icon icon, Buttons buttons,
               Answer defaultButton) {
    return installed->message({text, caption, icon, buttons, defaultButton});
}

}  // namespace ui
