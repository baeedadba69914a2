#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "base/Error.h"
#include "exchange/Ansi.h"
#include "exchange/AnsiLineReader.h"
#include "exchange/clsFileSys.h"

namespace {

struct AnsiCase {
    const char16_t* text;
    const char* bytes;
};

class AnsiEncoding : public ::testing::TestWithParam<AnsiCase> {};

TEST_P(AnsiEncoding, WritesWindows1252) {
    EXPECT_EQ(ansi::encode(QString::fromUtf16(GetParam().text)), QByteArray(GetParam().bytes));
}

INSTANTIATE_TEST_SUITE_P(
    Characters, AnsiEncoding,
    ::testing::Values(AnsiCase{u"Crème brûlée",
                               "Cr\xE8me br\xFBl\xE9"
                               "e"},
                      AnsiCase{u"€ 12", "\x80 12"},
                      AnsiCase{u"„citaat” ‘x’ – — … ™ Œ ž Ÿ",
                               "\x84"
                               "citaat\x94 \x91x\x92 \x96 \x97 \x85 \x99 \x8C \x9E \x9F"},
                      AnsiCase{u"\u00A0¿ÿ", "\xA0\xBF\xFF"},
                      // What 1252 cannot hold becomes one "?" per character.
                      AnsiCase{u"Ωπ 😀!", "?? ?!"}));

TEST(Ansi, EveryByteReadsBackAsItself) {
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte) all.append(static_cast<char>(byte));
    const QString text = ansi::decode(all);
    EXPECT_EQ(text.at(0x80), QChar(0x20AC));
    EXPECT_EQ(text.at(0x9F), QChar(0x0178));
    EXPECT_EQ(text.at(0xE9), QChar(0x00E9));
    EXPECT_EQ(ansi::encode(text), all);
}

TEST(AnsiLineReader, EndsLinesAtCrCrLfAndLf) {
    QTemporaryDir dir;
    QFile file(dir.filePath("regels.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    // A CR LF split over the reader's 1 MiB blocks must still be one line end.
    const QByteArray longLine(1024 * 1024 - 1, 'a');
    file.write("een\rtwee\r\ndrie\n\nzonder einde\r\n" + longLine + "\r\n\xE9\xE9n");
    file.close();
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    AnsiLineReader reader(file);
    QStringList lines;
    for (QString line; reader.readLine(line);) lines.append(line);
    EXPECT_EQ(lines, (QStringList{"een", "twee", "drie", "", "zonder einde",
                                  QString::fromLatin1(longLine), QStringLiteral("één")}));
    EXPECT_EQ(reader.position(), file.size());
}

class FileSysTest : public ::testing::Test {
protected:
    QString path(const QString& name) const { return dir_.filePath(name); }
    static QByteArray read(const QString& file) {
        QFile f(file);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

private:
    QTemporaryDir dir_;
};

TEST_F(FileSysTest, MaakRegelAppendsAnsiLinesWithCrLf) {
    {
        QFile existing(path("uit.csv"));
        ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
        existing.write("eerst\r\n");
    }
    clsFileSys files;
    files.setBestandsNaam(path("uit.csv"));
    files.MaakRegel(QStringLiteral("café"));
    files.MaakRegel(QString());
    files.Sluiten();
    EXPECT_EQ(read(path("uit.csv")), QByteArray("eerst\r\ncaf\xE9\r\n\r\n"));

    // A new name closes the old file; the new one is created when missing.
    files.MaakRegel("nog een");
    files.setBestandsNaam(path("nieuw.csv"));
    files.MaakRegel("x");
    EXPECT_EQ(read(path("uit.csv")), QByteArray("eerst\r\ncaf\xE9\r\n\r\nnog een\r\n"));
    files.Sluiten();
    EXPECT_EQ(read(path("nieuw.csv")), QByteArray("x\r\n"));
}

TEST_F(FileSysTest, MaakRegelRaisesWhenTheFileCannotBeWritten) {
    clsFileSys files;
    files.setBestandsNaam(path("geen-map/uit.csv"));
    EXPECT_THROW(files.MaakRegel("x"), Error);
}

TEST_F(FileSysTest, CopyReplacesTheTargetOnlyWithACompleteCopy) {
    clsFileSys files;
    ASSERT_TRUE(files.CreateFile(path("doel")));
    QFile source(path("bron"));
    ASSERT_TRUE(source.open(QIODevice::WriteOnly));
    source.write("inhoud");
    source.close();
    EXPECT_TRUE(files.CopyFile(path("bron"), path("doel")));
    EXPECT_EQ(read(path("doel")), QByteArray("inhoud"));
    EXPECT_EQ(files.FileSize(path("doel")), 6);

    EXPECT_FALSE(files.CopyFile(path("ontbreekt"), path("doel")));
    EXPECT_EQ(read(path("doel")), QByteArray("inhoud"));
    EXPECT_EQ(QDir(path("")).entryList(QDir::Files), (QStringList{"bron", "doel"}));
    try {
        files.FileSize(path("ontbreekt"));
        ADD_FAILURE() << "no error for a missing file";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), Error::FileNotFound);
    }
}

TEST_F(FileSysTest, CreateShortcutWritesADesktopEntry) {
    clsFileSys files;
    ASSERT_TRUE(files.CreateShortcut("/opt/Linde brug/lindebrug$1", path("lindebrug.desktop"),
                                     "Lindebrug"));
    EXPECT_EQ(read(path("lindebrug.desktop")),
              QByteArray("[Desktop Entry]\nType=Application\nName=Lindebrug\n"
                         "Exec=\"/opt/Linde brug/lindebrug\\\\$1\"\nPath=/opt/Linde brug\n"
                         "Terminal=false\n"));
    EXPECT_TRUE(QFile::permissions(path("lindebrug.desktop")) & QFileDevice::ExeOwner);
}

}  // namespace
