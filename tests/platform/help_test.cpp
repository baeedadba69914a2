#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTemporaryDir>
#include <Qt>

#include "RecordingUiService.h"
#include "TempProgramFolder.h"
#include "platform/HelpKey.h"
#include "platform/ProcessList.h"
#include "platform/clsHelp.h"

namespace {

class FakeProcessList : public ProcessList {
public:
    explicit FakeProcessList(QStringList names) : names_(std::move(names)) {}
    QStringList names() const override { return names_; }

private:
    QStringList names_;
};

void touch(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

struct Installed {
    bool helpFile;
    bool collection;
};

class HelpFiles : public ::testing::TestWithParam<Installed> {};

TEST_P(HelpFiles, AManualWithoutBothFilesIsReportedMissing) {
    TempProgramFolder folder;
    RecordingUiService ui;
    if (GetParam().helpFile) {
        touch(folder.file(QStringLiteral("Lindebrug.qch")));
    }
    if (GetParam().collection) {
        touch(folder.file(QStringLiteral("Lindebrug.qhc")));
    }
    const FakeProcessList none({});

    clsHelp(none).ToonHelpPagina(QStringLiteral("klanten.htm"));

    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().text, QStringLiteral("Helpbestand niet gevonden"));
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);
    EXPECT_TRUE(ui.startedPrograms.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Missing, HelpFiles,
                         ::testing::Values(Installed{false, false}, Installed{true, false},
                                           Installed{false, true}));

class InstalledManual : public ::testing::Test {
protected:
    void SetUp() override {
        touch(folder.file(QStringLiteral("Lindebrug.qch")));
        touch(folder.file(QStringLiteral("Lindebrug.qhc")));
    }
    TempProgramFolder folder;
    RecordingUiService ui;
};

TEST_F(InstalledManual, StartsTheViewerOnThePage) {
    const FakeProcessList others({QStringLiteral("systemd"), QStringLiteral("bash"),
                                  QStringLiteral("assistant-qt5"), QStringLiteral("xassistant")});

    clsHelp(others).ToonHelpPagina(QStringLiteral("artikelen.htm"));

    EXPECT_TRUE(ui.messages.isEmpty());
    const QStringList expected{
        QLibraryInfo::path(QLibraryInfo::BinariesPath) + QStringLiteral("/assistant"),
        QStringLiteral("-collectionFile"),
        QDir(folder.path()).filePath(QStringLiteral("Lindebrug.qhc")), QStringLiteral("-showUrl"),
        QStringLiteral("qthelp://" LINDEBRUG_HELP_NAMESPACE "/doc/artikelen.htm")};
    EXPECT_EQ(ui.startedPrograms, QList<QStringList>{expected});
}

TEST_F(InstalledManual, ARunningViewerInAnyCaseBlocksTheStart) {
    for (const char* viewer : {"assistant", "ASSISTANT", "Assistant"}) {
        SCOPED_TRACE(viewer);
        const FakeProcessList running(
            {QStringLiteral("systemd"), QString::fromLatin1(viewer), QStringLiteral("bash")});

        clsHelp(running).ToonHelpPagina(QStringLiteral("Introductie.htm"));

        EXPECT_TRUE(ui.startedPrograms.isEmpty());
        EXPECT_TRUE(ui.messages.isEmpty());
    }
}

TEST(ProcProcessList, ReadsTheNameOfEveryNumberedEntry) {
    QTemporaryDir proc;
    const auto process = [&](const QString& id, const QByteArray& comm) {
        QDir(proc.path()).mkdir(id);
        QFile file(proc.filePath(id + QStringLiteral("/comm")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(comm);
    };
    process(QStringLiteral("1"), "systemd\n");
    process(QStringLiteral("4711"), "assistant\n");
    process(QStringLiteral("815"), QByteArray("bash\0rest\n", 10));
    process(QStringLiteral("self"), "not a process\n");
    QDir(proc.path()).mkdir(QStringLiteral("99"));  // ended before its name could be read

    QStringList names = ProcProcessList(proc.path()).names();
    names.sort();

    EXPECT_EQ(names, (QStringList{QStringLiteral("assistant"), QStringLiteral("bash"),
                                  QStringLiteral("systemd")}));
}

TEST(ProcProcessList, FindsThisVeryProcess) {
    // The kernel keeps the first 15 characters of a program's name.
    const QString self = QFileInfo(QCoreApplication::applicationFilePath()).fileName().left(15);

    EXPECT_TRUE(ProcProcessList().names().contains(self));
}

TEST(HelpKey, OnlyF1OpensTheManual) {
    struct Case {
        int key;
        bool help;
    };
    for (const Case& c : {Case{Qt::Key_F1, true}, Case{112, true}, Case{Qt::Key_F2, false},
                          Case{Qt::Key_P, false}, Case{Qt::Key_Help, false}}) {
        SCOPED_TRACE(c.key);
        TempProgramFolder emptyFolder;
        RecordingUiService ui;

        EXPECT_EQ(HelpKey::isHelpKey(c.key), c.help);
        EXPECT_EQ(HelpKey::showPageOnHelpKey(c.key, QString::fromLatin1(HelpPage::Klanten)),
                  c.help);
        EXPECT_EQ(ui.messages.size(), c.help ? 1 : 0);
    }
}

// The compiled manual in the program folder must hold every page the screens ask for, under
// the namespace the launcher puts in its addresses, and its collection must find it.
class BuiltManual : public ::testing::Test {
protected:
    static QStringList column(const QString& database, const char* query) {
        sqlite3* db = nullptr;
        QStringList values;
        if (sqlite3_open_v2(database.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) ==
            SQLITE_OK) {
            sqlite3_stmt* statement = nullptr;
            if (sqlite3_prepare_v2(db, query, -1, &statement, nullptr) == SQLITE_OK) {
                while (sqlite3_step(statement) == SQLITE_ROW) {
                    values.append(QString::fromUtf8(
                        reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))));
                }
            }
            sqlite3_finalize(statement);
        }
        sqlite3_close(db);
        return values;
    }
};

TEST_F(BuiltManual, HoldsEveryPageTheProgramOpens) {
#ifndef LINDEBRUG_MANUAL_DIR
    GTEST_SKIP() << "the manual is not built on this machine";
#else
    const QString qch = QStringLiteral(LINDEBRUG_MANUAL_DIR "/Lindebrug.qch");
    const QString qhc = QStringLiteral(LINDEBRUG_MANUAL_DIR "/Lindebrug.qhc");

    EXPECT_EQ(column(qch, "SELECT Name FROM NamespaceTable"),
              QStringList{QStringLiteral(LINDEBRUG_HELP_NAMESPACE)});
    const QStringList files = column(qch, "SELECT Name FROM FileNameTable");
    for (const char* page :
         {HelpPage::Introductie, HelpPage::Artikelen, HelpPage::Klanten, HelpPage::Instellingen}) {
        SCOPED_TRACE(page);
        EXPECT_TRUE(files.contains(QString::fromLatin1(page)));
    }
    EXPECT_EQ(column(qhc, "SELECT Name || ' ' || FilePath FROM NamespaceTable"),
              QStringList{QStringLiteral(LINDEBRUG_HELP_NAMESPACE " Lindebrug.qch")});
#endif
}

}  // namespace
