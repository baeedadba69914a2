// lindebrug-cli: the data-exchange entries of the program's menu from a terminal, on the
// database in the program folder. The routines are the program's own; only the way they
// ask and tell is the terminal's.

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QStringList>
#include <QTextStream>
#include <cstdio>

#include "base/UiService.h"
#include "exchange/ExchangeRoutines.h"
#include "printing/modPdf.h"
#include "store/clsObjAppInstellingen.h"

namespace {

const char* const kUsage =
    "Gebruik: lindebrug-cli [--yes] OPDRACHT\n"
    "\n"
    "Opdrachten (op de database db.daa in de map van het programma):\n"
    "  export klant|artikel|FactArt MAP   register of factuuroverzicht naar MAP/<naam>.csv\n"
    "  import Klant|Artikel BESTAND       regels van BESTAND toevoegen aan de tabel\n"
    "  backup MAP                         db.daa kopieren naar MAP/<ddmmjjjj>db.bu1\n"
    "  restore BESTAND                    db.daa vervangen door de backup BESTAND\n"
    "  factuur NUMMER... BESTAND.pdf      facturen in het sjabloon van de instellingen als PDF\n"
    "  overzicht artikelen|klanten BESTAND.pdf   artikel- of klantenoverzicht als PDF\n"
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
    QStringList numbers;  // of the invoices to print
};

int usageError(const QString& problem) {
    QTextStream(stderr) << problem << "\n\n" << kUsage;
    return 2;
}

bool databasePresent() {
    if (clsObjAppInstellingen().DatabaseNietOpAlleenLezen())
        return true;
    ui::message(QStringLiteral("Databasebestand ontbreekt"), QString(), ui::Icon::Critical);
    return false;
}

bool run(const Command& command) {
    if (command.name == QLatin1String("restore"))
        return exchange::restore();
    if (!databasePresent())
        return false;
    if (command.name == QLatin1String("backup"))
        return exchange::backup();
    if (command.name == QLatin1String("export"))
        return exchange::exportRegister(command.subject, QStringLiteral("csv"));
    if (command.name == QLatin1String("factuur"))
        return FacturenAlsPdf(command.numbers, command.path);
    if (command.name == QLatin1String("overzicht"))
        return OverzichtAlsPdf(command.subject == QLatin1String("artikelen") ? 1 : 3, command.path);
    return exchange::importTable(command.subject);
}

int runCommand(const Command& command, bool yes) {
    TerminalService terminal(command.path, yes);
    ui::install(&terminal);
    const bool succeeded = run(command);
    ui::install(nullptr);
    return succeeded ? 0 : 1;
}

int runPdf(Command command, QStringList arguments, bool yes) {
    const bool invoices = command.name == QLatin1String("factuur");
    if (arguments.size() < 2 || (!invoices && arguments.size() != 2))
        return usageError(QStringLiteral("Verkeerd aantal argumenten voor ") + command.name + '.');
    command.path = QFileInfo(arguments.takeLast()).absoluteFilePath();
    if (invoices) {
        command.numbers = arguments;
    } else {
        command.subject = arguments.first();
        if (command.subject != QLatin1String("artikelen") &&
            command.subject != QLatin1String("klanten"))
            return usageError(QStringLiteral("Onbekend overzicht: ") + command.subject);
    }
    return runCommand(command, yes);
}

}  // namespace

// Printing needs fonts, so the PDF commands run a GUI application, on no screen at all
// unless one is asked for.
bool printsPdf(int argc, char* argv[]) {
    for (int i = 1; i < argc; ++i) {
        const QByteArray word(argv[i]);
        if (!word.startsWith('-'))
            return word == "factuur" || word == "overzicht";
    }
    return false;
}

int main(int argc, char* argv[]) {
    std::unique_ptr<QCoreApplication> app;
    if (printsPdf(argc, argv)) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("lindebrug-cli"));
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.contains(QStringLiteral("--help")) || arguments.contains(QStringLiteral("-h"))) {
        out() << kUsage << Qt::flush;
        return 0;
    }
    const bool yes = arguments.removeAll(QStringLiteral("--yes")) > 0;
    if (arguments.isEmpty())
        return usageError(QStringLiteral("Geen opdracht gegeven."));

    Command command{arguments.takeFirst(), QString(), QString(), {}};
    const bool withSubject =
        command.name == QLatin1String("export") || command.name == QLatin1String("import");
    const bool known = withSubject || command.name == QLatin1String("backup") ||
                       command.name == QLatin1String("restore");
    if (command.name == QLatin1String("factuur") || command.name == QLatin1String("overzicht"))
        return runPdf(command, arguments, yes);
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
    return runCommand(command, yes);
}
