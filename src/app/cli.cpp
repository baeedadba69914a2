// lindebrug-cli: the data-exchange entries of the program's menu from a terminal, on the
// database in the program folder. The routines are the program's own; only the way they
// ask and tell is the terminal's: messages on standard output, and on standard error the
// reason of a failure, so that a scheduled job's log says what went wrong.

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QStringList>
#include <QTextStream>
#include <memory>

#include "base/ProgramFolder.h"
#include "base/UiService.h"
#include "controllers/JetMigrationController.h"
#include "exchange/DatabaseFile.h"
#include "exchange/ExchangeRoutines.h"
#include "exchange/ubl/UblExport.h"
#include "printing/modPdf.h"
#include "store/clsDatabase.h"
#include "store/clsObjAppInstellingen.h"
#include "store/jet/JetReader.h"

namespace {

enum ExitCode { Succeeded = 0, Failed = 1, WrongUse = 2, DatabaseUnusable = 3 };

struct Invocation {
    QString subject;      // the register or table, in the program's own spelling
    QStringList numbers;  // the invoice numbers of the commands that take them
    QString option;       // the command's own option as given ("--controle", "nlcius"), if any
    QString path;         // the last argument, absolute
    bool force = false;
};

// An option of one command: a flag, or a name followed by one of its values.
struct Option {
    const char* name = nullptr;
    QStringList values;  // empty: a flag
};

// One command of the tool: its help line, what it takes and what it runs. Its arguments are,
// in this order: the subject (when it has subjects), the invoice numbers (when it takes
// them: one or more), and the path of a folder or a file.
struct Command {
    const char* name;
    const char* arguments;    // as the help shows them
    const char* description;  // the help's explanation (UTF-8)
    QStringList subjects;     // the registers it takes (any letter case); none: it takes none
    bool takesNumbers;
    Option option;
    bool takesFolder;  // the path is a folder (else a file)
    bool needsDatabase;
    bool (*run)(const Invocation&);
    bool printsPdf = false;  // needs fonts: runs as a GUI application on no screen
};

const Command kCommands[] = {
    {"export",
     "klant|artikel|FactArt MAP",
     "register of factuuroverzicht naar MAP/<naam>.csv",
     {QStringLiteral("klant"), QStringLiteral("artikel"), QStringLiteral("FactArt")},
     false,
     {},
     true,
     true,
     [](const Invocation& call) { return exchange::exportRegister(call.subject, "csv"); }},
    {"import",
     "Klant|Artikel BESTAND",
     "regels van BESTAND toevoegen aan de tabel",
     {QStringLiteral("Klant"), QStringLiteral("Artikel")},
     false,
     {},
     false,
     true,
     [](const Invocation& call) { return exchange::importTable(call.subject); }},
    {"backup",
     "MAP",
     "db.daa kopiëren naar MAP/<ddmmjjjj>db.bu1",
     {},
     false,
     {},
     true,
     true,
     [](const Invocation&) { return exchange::backup(); }},
    {"restore",
     "BESTAND",
     "db.daa vervangen door de backup BESTAND (de vervangen database blijft als "
     "db.daa.vorige)",
     {},
     false,
     {},
     false,
     false,
     [](const Invocation& call) {
         return exchange::restore(call.force ? exchange::RestoreCheck::None
                                             : exchange::RestoreCheck::ProgramDatabaseOnly);
     }},
    {"ubl",
     "[--profiel peppol|nlcius] NUMMER... MAP",
     "facturen als e-factuur (UBL 2.1) naar MAP/<nummer>.xml; Peppol tenzij nlcius",
     {},
     true,
     {"--profiel", {QStringLiteral("peppol"), QStringLiteral("nlcius")}},
     true,
     true,
     [](const Invocation& call) {
         QList<qint64> numbers;
         for (const QString& number : call.numbers) {
             numbers.append(number.toLongLong());
         }
         return exchange::ubl::exportInvoiceNumbers(numbers, call.option == "nlcius"
                                                                 ? exchange::ubl::Profile::NlCius
                                                                 : exchange::ubl::Profile::Peppol);
     }},
    {"omzetten",
     "[--controle] OUD.daa",
     "database van een eerdere versie (Access) omzetten naar db.daa; --controle: alleen "
     "controleren",
     {},
     false,
     {"--controle", {}},
     false,
     false,
     [](const Invocation& call) {
         return JetMigrationController::convertCommand(call.path, !call.option.isEmpty());
     }},
    {"factuur",
     "NUMMER... BESTAND.pdf",
     "facturen in het sjabloon van de instellingen als PDF",
     {},
     true,
     {},
     false,
     true,
     [](const Invocation& call) { return FacturenAlsPdf(call.numbers, call.path); },
     true},
    {"overzicht",
     "artikelen|klanten BESTAND.pdf",
     "artikel- of klantenoverzicht als PDF",
     {QStringLiteral("artikelen"), QStringLiteral("klanten")},
     false,
     {},
     false,
     true,
     [](const Invocation& call) {
         return OverzichtAlsPdf(call.subject == QLatin1String("artikelen") ? 1 : 3, call.path);
     },
     true},
};

QString usage() {
    QString text = QStringLiteral(
        "Gebruik: lindebrug-cli [--yes] [--force] OPDRACHT\n"
        "\n"
        "Opdrachten (op de database db.daa in de map van het programma):\n");
    for (const Command& command : kCommands) {
        text += QStringLiteral("  %1 %2\n      %3\n")
                    .arg(QLatin1String(command.name), QLatin1String(command.arguments),
                         QString::fromUtf8(command.description));
    }
    return text + QStringLiteral(
                      "  --help      deze uitleg\n"
                      "  --version   de versie van het programma\n"
                      "\n"
                      "Een vraag (bijvoorbeeld of een bestaand bestand overschreven mag worden) "
                      "wordt met\n"
                      "--yes met Ja beantwoord, anders met Nee. Opdrachten en registers mogen in "
                      "kleine\n"
                      "of hoofdletters. restore zet alleen een database van Lindebrug terug, "
                      "tenzij\n"
                      "--force gegeven is.\n"
                      "\n"
                      "Exitcodes:\n"
                      "  0  de opdracht is gelukt\n"
                      "  1  de opdracht is mislukt; de reden staat op de standaardfoutuitvoer\n"
                      "  2  verkeerde aanroep: onbekende opdracht, tabel of aantal argumenten\n"
                      "  3  db.daa is na de opdracht geen bruikbare database van Lindebrug\n");
}

QTextStream& out() {
    static QTextStream stream(stdout);
    return stream;
}

QTextStream& err() {
    static QTextStream stream(stderr);
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
        ui::Answer answer = ui::Answer::Ok;
        if (message.buttons == ui::Buttons::YesNo || message.buttons == ui::Buttons::YesNoCancel) {
            out() << (yes_ ? " Ja" : " Nee");
            answer = yes_ ? ui::Answer::Yes : ui::Answer::No;
        }
        out() << '\n' << Qt::flush;
        if (!message.details.isEmpty()) {
            err() << message.details << '\n' << Qt::flush;
        }
        return answer;
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

int usageError(const QString& problem) {
    err() << problem << "\n\n" << usage() << Qt::flush;
    return WrongUse;
}

const Command* findCommand(const QString& name) {
    for (const Command& command : kCommands) {
        if (name.compare(QLatin1String(command.name), Qt::CaseInsensitive) == 0) {
            return &command;
        }
    }
    return nullptr;
}

// The register as the program spells it, whatever the letter case typed; empty if unknown.
QString registerName(const Command& command, const QString& typed) {
    for (const QString& subject : command.subjects) {
        if (subject.compare(typed, Qt::CaseInsensitive) == 0) {
            return subject;
        }
    }
    return QString();
}

// Takes the command's option out of the arguments; an error text when it is wrong.
QString readOption(const Command& command, QStringList& arguments, Invocation& call) {
    if (!command.option.name) {
        return QString();
    }
    const QString option = QLatin1String(command.option.name);
    const qsizetype at = arguments.indexOf(option);
    if (at < 0) {
        return QString();
    }
    arguments.removeAt(at);
    if (command.option.values.isEmpty()) {
        call.option = option;
        return QString();
    }
    const QString value = at < arguments.size() ? arguments.takeAt(at) : QString();
    for (const QString& allowed : command.option.values) {
        if (allowed.compare(value, Qt::CaseInsensitive) == 0) {
            call.option = allowed;
            return QString();
        }
    }
    return QStringLiteral("Onbekende waarde voor ") + option + ": " + value;
}

// Fills call from the arguments after the command's name; an error text when they do not
// fit the command.
QString readArguments(const Command& command, QStringList arguments, Invocation& call) {
    const QString name = QLatin1String(command.name);
    if (const QString problem = readOption(command, arguments, call); !problem.isEmpty()) {
        return problem;
    }
    const qsizetype fixed = (command.subjects.isEmpty() ? 0 : 1) + 1;
    const bool countFits =
        command.takesNumbers ? arguments.size() > fixed : arguments.size() == fixed;
    if (!countFits) {
        return QStringLiteral("Verkeerd aantal argumenten voor ") + name + '.';
    }
    if (!command.subjects.isEmpty()) {
        call.subject = registerName(command, arguments.first());
        if (call.subject.isEmpty()) {
            return QStringLiteral("Onbekende tabel voor ") + name + ": " + arguments.first();
        }
        arguments.removeFirst();
    }
    const QString last = arguments.takeLast();
    for (const QString& number : std::as_const(arguments)) {
        bool whole = false;
        number.toLongLong(&whole);
        if (!whole) {
            return QStringLiteral("Geen factuurnummer: ") + number;
        }
    }
    call.numbers = arguments;
    call.path =
        command.takesFolder ? QDir(last).absolutePath() : QFileInfo(last).absoluteFilePath();
    return QString();
}

bool databasePresent() {
    if (jet::isJetFile(clsDatabase::DatabasePath())) {
        ui::message(QStringLiteral("db.daa staat nog in het oude formaat (Access). Zet het "
                                   "eerst om met: lindebrug-cli omzetten ") +
                    clsDatabase::DatabasePath());
        return false;
    }
    if (clsObjAppInstellingen().DatabaseNietOpAlleenLezen()) {
        return true;
    }
    ui::Message missing{QStringLiteral("Databasebestand ontbreekt"), QString(), ui::Icon::Critical};
    missing.details =
        QStringLiteral("Er is geen db.daa in ") + QDir::toNativeSeparators(ProgramFolder::path());
    ui::service().message(missing);
    return false;
}

int run(const Command& command, const Invocation& call) {
    exchange::removeLeftovers();
    if (command.needsDatabase && !databasePresent()) {
        return Failed;
    }
    const bool succeeded = command.run(call);
    if (qstrcmp(command.name, "restore") == 0) {
        closeSharedConnections();
        QString reason;
        if (!dbfile::isProgramDatabase(clsDatabase::DatabasePath(), &reason)) {
            err() << "db.daa is geen bruikbare database: " << reason << '\n' << Qt::flush;
            return DatabaseUnusable;
        }
    }
    return succeeded ? Succeeded : Failed;
}

// The command a command line names: its first word that is no option.
const Command* commandOf(int argc, char* argv[]) {
    for (int i = 1; i < argc; ++i) {
        if (argv[i][0] != '-') {
            return findCommand(QString::fromLocal8Bit(argv[i]));
        }
    }
    return nullptr;
}

}  // namespace

int main(int argc, char* argv[]) {
    std::unique_ptr<QCoreApplication> application;
    if (const Command* command = commandOf(argc, argv); command && command->printsPdf) {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
        application = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        application = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("lindebrug-cli"));
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.contains(QStringLiteral("--help")) || arguments.contains(QStringLiteral("-h"))) {
        out() << usage() << Qt::flush;
        return Succeeded;
    }
    if (arguments.contains(QStringLiteral("--version"))) {
        out() << "lindebrug-cli " << LINDEBRUG_VERSION << '\n' << Qt::flush;
        return Succeeded;
    }
    Invocation call;
    const bool yes = arguments.removeAll(QStringLiteral("--yes")) > 0;
    call.force = arguments.removeAll(QStringLiteral("--force")) > 0;
    if (arguments.isEmpty()) {
        return usageError(QStringLiteral("Geen opdracht gegeven."));
    }

    const QString name = arguments.takeFirst();
    const Command* command = findCommand(name);
    if (!command) {
        return usageError(QStringLiteral("Onbekende opdracht: ") + name);
    }
    if (const QString problem = readArguments(*command, arguments, call); !problem.isEmpty()) {
        return usageError(problem);
    }

    TerminalService terminal(call.path, yes);
    ui::install(&terminal);
    const int code = run(*command, call);
    ui::install(nullptr);
    return code;
}
