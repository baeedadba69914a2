#pragma once

#include <QPointer>
#include <QStringList>
#include <memory>

#include "controllers/ImportViews.h"
#include "controllers/RegisterController.h"
#include "controllers/ShellViews.h"
#include "controllers/ViewFactory.h"

// Fakes of the frame's screens and of the registers. Each writes what was asked of it
// into one shared log, as short readable lines.
using ShellLog = QStringList;

inline QString registerName(Register which) {
    static const char* const names[] = {"Artikelen", "Klanten", "Facturen", "Instellingen"};
    return QString::fromLatin1(names[static_cast<int>(which)]);
}

class FakeRegister : public RegisterController {
public:
    FakeRegister(Register which, ShellLog& log) : which_(which), log_(log) {}
    void start() override { log_ << "start " + registerName(which_); }
    // The user closes the register's screen.
    void close() { Q_EMIT closed(); }

private:
    Register which_;
    ShellLog& log_;
};

// Makes fake registers and remembers each; a deleted one reads as null.
struct FakeRegisters {
    ShellLog& log;
    QList<QPointer<FakeRegister>> made{};

    RegisterCreator creator() {
        return [this](Register which) {
            auto fake = std::make_unique<FakeRegister>(which, log);
            made.append(fake.get());
            return std::unique_ptr<RegisterController>(std::move(fake));
        };
    }
};

struct FakeMainWindow : IMainWindowView {
    ShellLog& log;
    QString updateCaption;
    bool updateEnabled = false;

    explicit FakeMainWindow(ShellLog& log) : log(log) {}
    void unload() override { log << "unload"; }
    void setUpdateTool(const QString& caption, bool enabled) override {
        updateCaption = caption;
        updateEnabled = enabled;
    }
};

struct FakeSplash : ISplashView {
    ShellLog& log;
    QString version;
    bool timed = true;

    explicit FakeSplash(ShellLog& log) : log(log) {}
    void setVersion(const QString& text) override { version = text; }
    void stopUnloadTimer() override { timed = false; }
    void showModal() override { log << "splash " + version + (timed ? " timed" : " until closed"); }
};

struct FakeAbout : IAboutView {
    ShellLog& log;
    QString version;

    explicit FakeAbout(ShellLog& log) : log(log) {}
    void setVersion(const QString& text) override { version = text; }
    void showModeless() override { log << "about " + version; }
};

struct FakeImport : IImportView {
    ShellLog& log;

    explicit FakeImport(ShellLog& log) : log(log) {}
    void setEvents(IImportEvents*) override {}
    void show() override { log << "import screen"; }
    void close() override {}
};

// Installed while it lives.
struct FakeShellViews : ViewFactory {
    ShellLog& log;

    explicit FakeShellViews(ShellLog& log) : log(log) { installViewFactory(this); }
    ~FakeShellViews() override { installViewFactory(nullptr); }

    std::unique_ptr<ISplashView> createSplash() override {
        return std::make_unique<FakeSplash>(log);
    }
    std::unique_ptr<IAboutView> createAbout() override {
        log << "new about";
        return std::make_unique<FakeAbout>(log);
    }
    std::unique_ptr<IImportView> createImport() override {
        return std::make_unique<FakeImport>(log);
    }
    std::unique_ptr<IHelpImportView> createHelpImport() override { return nullptr; }
};
