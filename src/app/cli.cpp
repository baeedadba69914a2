// lindebrug-cli: the data-exchange entries of the program's menu from a terminal, on the
// database in the program folder. The routines are the program's own; only the way they
// ask and tell is the terminal's.

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <QTextStream>
#include <cstdio>

#include "base/UiService.h"
#include "controllers/JetMigrationController.h"
#include "exchange/ExchangeRoutines.h"
#include "store/clsDatabase.h"
#include "store/clsObjAppInstellingen.h"
#include "store/jet/JetReader.h"

namespace {

const char* const kUsage =
    "Gebruik: lindebrug-cli [--yes] OPDRACHT\n"
    "\n"
    "Opdrachten (op de database db.daa in de map van het programma):\n"
    "  export klant|artikel|FactArt MAP   register of factuuroverzicht naar MAP/<naam>.csv\n"
    "  import Klant|Artikel BESTAND       regels van BESTAND toevoegen aan de tabel\n"
    "  backup MAP                         db.daa kopieren naar MAP/<ddmmjjjj>db.bu1\n"
    "  restore BESTAND                    db.daa vervangen door de backup BESTAND\n"
    "  omzetten [--controle] OUD.daa      database van een eerdere versie (Access) omzetten\n"
    "                                     naar db.daa; --controle: alleen controleren\n"
    "  --help                             deze uitleg\n"
    "\n"
    "Een vraag (bijvoorbeeld of een bestaand bestand overschreven mag worden) wordt met\n"
    "--yes met Ja beantwoord, anders met Nee. De exitcode is 0 alleen als de opdracht\n"
    "gelukt is.\n";

QTextStream& out() {
    static QTextStream stream(stdout);
    return stream;
}

// Messages go to the terminal; the one folder or file of the command answers every
// dialog, and --yes every question.
class TerminalService : public ui::Service {
public:
    TerminalService(QString path, bool yes) : path_(std::move(path)), yes_(yes) {}

    ui::Answer message(const ui::Message& message) override {
        QString text = message.text;
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        out() << text;
        if (message.buttons != ui::Buttons::YesNo && message.buttons != ui::Buttons::YesNoCancel) {
            out() << '\n' << Qt::flush;
            return ui::Answer::Ok;
        }
        out() << (yes_ ? " Ja\n" : " Nee\n") << Qt::flush;
        return yes_ ? ui::Answer::Yes : ui::Answer::No;
    }
    QString openFile(const QString&, const QString&, const QString&) override { return path_; }
    QString chooseFolder(const QString&) override { return path_; }
    bool choosePrinter(QPrinter&) override { return false; }
    void playSound(const QString&) override {}
    bool openAddress(const QString&) override { return false; }
    bool startProgram(const QString&, const QStringList&) override { return false; }
    std::unique_ptr<ui::Progress> progress(const QString&, qint64) override {
        return ui::silentProgress();
    }

private:
    QString path_;
    bool yes_;
};

struct Command {
    QString name;
    QString subject;  // the register or table of export and import
    QString path;
};

int usageError(const QString& problem) {
    QTextStream(stderr) << problem << "\n\n" << kUsage;
    return 2;
}

bool databasePresent() {
    if (jet::isJetFile(clsDatabase::DatabasePath())) {
        ui::message(QStringLiteral("db.daa staat nog in het oude formaat (Access). Zet het "
                                   "eerst om met: lindebrug-cli omzetten ") +
                    clsDatabase::DatabasePath());
        return false;
    }
    if (clsObjAppInstellingen().DatabaseNietOpAlleenLezen())
        return true;
    ui::message(QStringLiteral("Databasebestand ontbreekt"), QString(), ui::Icon::Critical);
    return false;
}

bool run(const Command& command) {
    if (command.name == QLatin1String("omzetten"))
        return JetMigrationController::convertCommand(
            command.path, command.subject == QLatin1String("--controle"));
    if (command.name == QLatin1String("restore"))
        return exchange::restore();
    if (!databasePresent())
        return false;
    if (command.name == QLatin1String("backup"))
        return exchange::backup();
    if (command.name == QLatin1String("export"))
        return exchange::exportRegister(command.subject, QStringLiteral("csv"));
    return exchange::importTable(command.subject);
}

}  // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("lindebrug-cli"));
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.contains(QStringLiteral("--help")) || arguments.contains(QStringLiteral("-h"))) {
        out() << kUsage << Qt::flush;
        return 0;
    }
    const bool yes = arguments.removeAll(QStringLiteral("--yes")) > 0;
    if (arguments.isEmpty())
        return usageError(QStringLiteral("Geen opdracht gegeven."));

    Command command{arguments.takeFirst(), QString(), QString()};
    if (command.name == QLatin1String("omzetten") &&
        arguments.removeAll(QStringLiteral("--controle")) > 0)
        command.subject = QStringLiteral("--controle");
    const bool withSubject =
        command.name == QLatin1String("export") || command.name == QLatin1String("import");
    const bool known = withSubject || command.name == QLatin1String("backup") ||
                       command.name == QLatin1String("restore") ||
                       command.name == QLatin1String("omzetten");
    if (!known)
        return usageError(QStringLiteral("Onbekende opdracht: ") + command.name);
    if (arguments.size() != (withSubject ? 2 : 1))
        return usageError(QStringLiteral("Verkeerd aantal argumenten voor ") + command.name + '.');
    if (withSubject) {
        command.subject = arguments.takeFirst();
        const QStringList allowed =
            command.name == QLatin1String("export")
                ? QStringList{QStringLiteral("klant"), QStringLiteral("artikel"),
                              QStringLiteral("FactArt")}
                : QStringList{QStringLiteral("Klant"), QStringLiteral("Artikel")};
        if (!allowed.contains(command.subject))
            return usageError(QStringLiteral("Onbekende tabel voor ") + command.name + ": " +
                              command.subject);
    }
    const bool takesFolder =
        command.name == QLatin1String("export") || command.name == QLatin1String("backup");
    command.path = takesFolder ? QDir(arguments.first()).absolutePath()
                               : QFileInfo(arguments.first()).absoluteFilePath();

    TerminalService terminal(command.path, yes);
    ui::install(&terminal);
    const bool succeeded = run(command);
    ui::install(nullptr);
    return succeeded ? 0 : 1;
}
