#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTemporaryDir>

#include "RecordingUiService.h"
#include "TempProgramFolder.h"
#include "platform/HelpKey.h"
#include "platform/ProcessList.h"
#include "platform/clsHelp.h"

namespace {

struct FakeProcessList : ProcessList {
    QStringList running;
    QStringList names() const override { return running; }
};

void write(const QString& path, const QByteArray& content = {}) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

class HelpTest : public ::testing::Test {
protected:
    void show(const QString& page) { clsHelp(processes).ToonHelpPagina(page); }

    TempProgramFolder folder;
    RecordingUiService ui;
    FakeProcessList processes;
};

// F1, as a Qt key or the classic code, asks for the manual; other keys are left alone.
TEST_F(HelpTest, AManualWithoutBothFilesIsReportedMissing) {
    EXPECT_FALSE(HelpKey::showPageOnHelpKey(Qt::Key_F2, HelpPage::Klanten));
    EXPECT_TRUE(HelpKey::showPageOnHelpKey(Qt::Key_F1, HelpPage::Klanten));
    write(folder.file("Lindebrug.qch"));
    EXPECT_TRUE(HelpKey::showPageOnHelpKey(HelpKey::ClassicF1, HelpPage::Klanten));
    QFile::rename(folder.file("Lindebrug.qch"), folder.file("Lindebrug.qhc"));
    show("klanten.htm");

    ASSERT_EQ(ui.messages.size(), 3);
    for (const ui::Message& shown : ui.messages) {
        EXPECT_EQ(shown.text, "Helpbestand niet gevonden");
        EXPECT_EQ(shown.icon, ui::Icon::Information);
    }
    EXPECT_TRUE(ui.startedPrograms.isEmpty());
}

TEST_F(HelpTest, StartsTheViewerOnThePageUnlessOneRuns) {
    write(folder.file("Lindebrug.qch"));
    write(folder.file("Lindebrug.qhc"));
    for (const char* viewer : {"assistant", "ASSISTANT", "Assistant"}) {
        processes.running = {"systemd", viewer, "bash"};
        show("Introductie.htm");
    }
    processes.running = {"systemd", "assistant-qt5", "xassistant"};
    show("artikelen.htm");

    EXPECT_TRUE(ui.messages.isEmpty());
    const QStringList expected{QLibraryInfo::path(QLibraryInfo::BinariesPath) + "/assistant",
                               "-collectionFile", QDir(folder.path()).filePath("Lindebrug.qhc"),
                               "-showUrl",
                               "qthelp://" LINDEBRUG_HELP_NAMESPACE "/doc/artikelen.htm"};
    EXPECT_EQ(ui.startedPrograms, QList<QStringList>{expected});
}

TEST(ProcProcessList, ReadsTheNameOfEveryNumberedEntry) {
    QTemporaryDir proc;
    for (const auto& [id, comm] : {std::pair{"1", QByteArray("systemd\n")},
                                   {"4711", "assistant\n"},
                                   {"815", QByteArray("bash\0rest\n", 10)},
                                   {"self", "no process\n"}}) {
        QDir(proc.path()).mkdir(id);
        write(proc.filePath(id + QString("/comm")), comm);
    }
    QDir(proc.path()).mkdir("99");  // ended before its name could be read

    QStringList names = ProcProcessList(proc.path()).names();
    names.sort();

    EXPECT_EQ(names, QStringList({"assistant", "bash", "systemd"}));
    // The kernel keeps the first 15 characters of a program's name.
    EXPECT_TRUE(ProcProcessList().names().contains(
        QFileInfo(QCoreApplication::applicationFilePath()).fileName().left(15)));
}

// The manual is compiled from the files its project lists.
TEST(Manual, HoldsEveryPageTheProgramOpens) {
    QFile project(LINDEBRUG_HELP_PROJECT);
    ASSERT_TRUE(project.open(QIODevice::ReadOnly));
    const QString listed = project.readAll();
    for (const char* page :
         {HelpPage::Introductie, HelpPage::Artikelen, HelpPage::Klanten, HelpPage::Instellingen}) {
        EXPECT_TRUE(listed.contains(QString("<file>%1</file>").arg(page))) << page;
    }
}

}  // namespace
