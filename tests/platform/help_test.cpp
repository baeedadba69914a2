#include <gtest/gtest.h>
#include <sqlite3.h>

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

TEST_F(HelpTest, AManualWithoutBothFilesIsReportedMissing) {
    show("klanten.htm");
    write(folder.file("Lindebrug.qch"));
    show("klanten.htm");
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

TEST_F(HelpTest, OnlyF1OpensTheManual) {
    for (const auto& [key, help] :
         {std::pair{int(Qt::Key_F1), true}, {HelpKey::ClassicF1, true}, {int(Qt::Key_F2), false}}) {
        ui.messages.clear();
        EXPECT_EQ(HelpKey::showPageOnHelpKey(key, HelpPage::Klanten), help) << key;
        EXPECT_EQ(ui.messages.size(), help ? 1 : 0);  // the program folder has no manual
    }
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

QStringList column(const QString& database, const char* query) {
    QStringList values;
    sqlite3* db = nullptr;
    sqlite3_open_v2(database.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_exec(
        db, query,
        [](void* out, int, char** row, char**) {
            static_cast<QStringList*>(out)->append(row[0]);
            return 0;
        },
        &values, nullptr);
    sqlite3_close(db);
    return values;
}

// The manual built into the program folder holds every page the screens ask for, under the
// namespace the launcher puts in its addresses, and its collection finds it.
TEST(BuiltManual, HoldsEveryPageTheProgramOpens) {
#ifndef LINDEBRUG_MANUAL_DIR
    GTEST_SKIP() << "the manual is not built on this machine";
#else
    const QString qch = LINDEBRUG_MANUAL_DIR "/Lindebrug.qch";
    EXPECT_EQ(column(qch, "SELECT Name FROM NamespaceTable"),
              QStringList{LINDEBRUG_HELP_NAMESPACE});
    const QStringList files = column(qch, "SELECT Name FROM FileNameTable");
    for (const char* page :
         {HelpPage::Introductie, HelpPage::Artikelen, HelpPage::Klanten, HelpPage::Instellingen}) {
        EXPECT_TRUE(files.contains(page)) << page;
    }
    EXPECT_EQ(column(LINDEBRUG_MANUAL_DIR "/Lindebrug.qhc",
                     "SELECT Name || ' ' || FilePath FROM NamespaceTable"),
              QStringList{LINDEBRUG_HELP_NAMESPACE " Lindebrug.qch"});
#endif
}

}  // namespace
