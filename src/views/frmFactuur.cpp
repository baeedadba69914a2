#include "views/frmFactuur.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

#include "base/UiService.h"

frmFactuur::frmFactuur(ShellServices services, QWidget* parent)
    : QMainWindow(parent), mdi_(new QMdiArea(this)), controller_(*this, std::move(services)) {
    setObjectName(QStringLiteral("frmFactuur"));
    setWindowTitle(ui::kProgramCaption);
    mdi_->setObjectName(QStringLiteral("mdiSchermen"));
    // A pale tint of the splash's colour behind the screens.
    mdi_->setBackground(QColor(0xd9, 0xe4, 0xe2));
    setCentralWidget(mdi_);
    // The size the frame returns to when the user takes it out of its maximised state.
    resize(QGuiApplication::primaryScreen()->availableSize() * 4 / 5);
    buildMenu();
}

frmFactuur::~frmFactuur() = default;

bool frmFactuur::startUp() {
    return controller_.startUp();
}

frmFactuur* frmFactuur::frame() {
    return dynamic_cast<frmFactuur*>(mainWindow());
}

void frmFactuur::showInside(QWidget* screen) {
    frmFactuur* window = frame();
    if (!window) {
        screen->show();
        return;
    }
    auto* subWindow = qobject_cast<QMdiSubWindow*>(screen->parentWidget());
    if (!subWindow) {
        // The sub-window only places the screen: its controller owns the screen, so the
        // sub-window never deletes it on close and goes when the screen goes.
        subWindow = new QMdiSubWindow;
        subWindow->setWidget(screen);
        subWindow->setAttribute(Qt::WA_DeleteOnClose, false);
        window->mdi_->addSubWindow(subWindow);
        connect(screen, &QObject::destroyed, subWindow, &QObject::deleteLater);
    }
    screen->show();
    subWindow->show();
    window->mdi_->setActiveSubWindow(subWindow);
}

void frmFactuur::unload() {
    close();
}

void frmFactuur::setUpdateTool(const QString& caption, bool enabled) {
    updateTool_->setText(caption);
    updateTool_->setEnabled(enabled);
}

void frmFactuur::closeEvent(QCloseEvent* event) {
    // The frame is the program: screens left open elsewhere do not keep it running.
    QMainWindow::closeEvent(event);
    QCoreApplication::quit();
}

QMenu* frmFactuur::createPopupMenu() {
    return nullptr;
}

void frmFactuur::buildMenu() {
    QMenuBar* bar = menuBar();
    bar->setObjectName(QStringLiteral("bndMenu"));
    bar->setContextMenuPolicy(Qt::PreventContextMenu);

    addTool(bar, QStringLiteral("tlAfsluiten"), QStringLiteral("A&fsluiten"));
    addTool(bar, QStringLiteral("tlArtikelen"), QStringLiteral("A&rtikelen/Uren"));
    addTool(bar, QStringLiteral("tlKlanten"), QStringLiteral("&Klanten"));
    QMenu* factureren = addBand(bar, QStringLiteral("tlFacturen"), QStringLiteral("&Factureren"),
                                QStringLiteral("bndFactureren"));
    addTool(bar, QStringLiteral("tlInstellingen"), QStringLiteral("I&nstellingen"));
    QMenu* overig = addBand(bar, QStringLiteral("tOverige"), QStringLiteral("&Overige functies"),
                            QStringLiteral("bndOverig"));
    QMenu* help =
        addBand(bar, QStringLiteral("tHelp"), QStringLiteral("&Help"), QStringLiteral("bndHelp"));
    // Its caption and state follow the update check at start-up.
    updateTool_ = addTool(bar, QStringLiteral("tUpdate"), QString());
    updateTool_->setEnabled(false);

    addTool(factureren, QStringLiteral("tlFacturerenArtikelen"), QStringLiteral("&Factureren"));

    QMenu* backup = addBand(overig, QStringLiteral("tBackupOnderM"), QStringLiteral("Backup"),
                            QStringLiteral("bndBackup"));
    QMenu* exports = addBand(overig, QStringLiteral("tExportOnderM"), QStringLiteral("Export"),
                             QStringLiteral("bndExport"));
    addTool(overig, QStringLiteral("tImportOnderM"), QStringLiteral("Import"));
    addTool(overig, QStringLiteral("tEtiket"), QStringLiteral("Etiketten"));

    addTool(backup, QStringLiteral("tBackup"), QStringLiteral("Backup"));
    addTool(backup, QStringLiteral("tRestore"), QStringLiteral("Restore"));

    addTool(exports, QStringLiteral("tlExpKlanten"), QStringLiteral("Klanten naar tekstbestand"));
    addTool(exports, QStringLiteral("tlExpArtikelen"),
            QStringLiteral("Artikelen naar tekstbestand"));
    addTool(exports, QStringLiteral("tlExpArtikelfacturen"),
            QStringLiteral("Facturen naar tekstbestand"));

    addTool(help, QStringLiteral("tlHelp"), QStringLiteral("Handboek"));
    addTool(help, QStringLiteral("tAbout"), QStringLiteral("Over..."));

    // Two bands that no entry of the bar opens; they are kept with their tools so the
    // layout stays complete.
    addTool(addDetachedBand(QStringLiteral("bndSchermen")), QStringLiteral("tlSchermen"),
            QStringLiteral("&Schermen"));
    QMenu* imports = addDetachedBand(QStringLiteral("bndImport"));
    addTool(imports, QStringLiteral("tImportArtikelen"), QStringLiteral("Import Artikelen/uren"));
    addTool(imports, QStringLiteral("tImportKlant"), QStringLiteral("Import klanten"));
}

QMenu* frmFactuur::addBand(QWidget* parentBand, const QString& toolName, const QString& caption,
                           const QString& bandName) {
    auto* band = new QMenu(caption, parentBand);
    band->setObjectName(bandName);
    band->menuAction()->setObjectName(toolName);
    parentBand->addAction(band->menuAction());
    return band;
}

QMenu* frmFactuur::addDetachedBand(const QString& bandName) {
    auto* band = new QMenu(this);
    band->setObjectName(bandName);
    return band;
}

QAction* frmFactuur::addTool(QWidget* band, const QString& toolName, const QString& caption) {
    auto* tool = new QAction(caption, band);
    tool->setObjectName(toolName);
    band->addAction(tool);
    connect(tool, &QAction::triggered, this, [this, toolName] { controller_.menuClick(toolName); });
    return tool;
}
