#include "controllers/PreviewController.h"

#include <QDir>
#include <QRegularExpression>

#include "base/UiService.h"
#include "controllers/BackInLoop.h"
#include "controllers/ViewFactory.h"
#include "printing/ReportRenderer.h"
#include "printing/clsPrinter.h"

namespace {

// A title as a file name: what a file system refuses becomes a blank.
QString fileNameOf(const QString& title) {
    QString name = title;
    name.replace(QRegularExpression(QStringLiteral("[\\\\/:*?\"<>|]")), QStringLiteral(" "));
    name = name.simplified();
    return (name.isEmpty() ? QStringLiteral("Rapport") : name) + QStringLiteral(".pdf");
}
}  // namespace

PreviewController::PreviewController(report::Document document,
                                     std::function<void(PreviewController*)> onClosed)
    : document_(std::move(document)), onClosed_(std::move(onClosed)) {}

PreviewController::~PreviewController() = default;

void PreviewController::start() {
    view_ = views<PrintViewFactory>().createPreview();
    view_->setEvents(this);
    view_->setDocument(&document_);
    view_->showModeless();
}

void PreviewController::afdrukken() {
    if (clsPrinter::print(document_) == clsPrinter::Printed::Failed) {
        ui::message(QStringLiteral("Het afdrukken is mislukt. Controleer de printer en probeer "
                                   "het opnieuw."),
                    QStringLiteral("Afdrukken"), ui::Icon::Exclamation);
    }
}

void PreviewController::opslaanAlsPdf() {
    const QString path = ui::service().saveFile(QStringLiteral("Opslaan als PDF"),
                                                QStringLiteral("PDF-bestanden (*.pdf)|*.pdf"),
                                                QDir::home().filePath(fileNameOf(document_.title)));
    if (path.isEmpty()) {
        return;
    }
    if (!report::writePdf(document_, path)) {
        ui::message(QStringLiteral("Het bestand ") + QDir::toNativeSeparators(path) +
                        QStringLiteral(" kon niet worden opgeslagen."),
                    QStringLiteral("Opslaan als PDF"), ui::Icon::Exclamation);
        return;
    }
    ui::message(QStringLiteral("Opgeslagen als ") + QDir::toNativeSeparators(path) + u'.',
                QStringLiteral("Opslaan als PDF"), ui::Icon::Information);
}

void PreviewController::gesloten() {
    if (onClosed_) {
        onClosed_(this);
    }
}

void PreviewController::hide() {
    if (view_) {
        view_->hide();
    }
}

ReportPreviews::~ReportPreviews() {
    if (report::presenter() == this) {
        report::installPresenter(nullptr);
    }
}

std::shared_ptr<report::ShownReport> ReportPreviews::present(const report::Document& document) {
    // A closed preview goes once the loop that closed it has control again: a print dialog
    // or a message box opened from the preview runs a loop of its own while the preview's
    // code is still on the stack.
    auto preview = std::make_shared<PreviewController>(document, [this](PreviewController* closed) {
        whenBackInLoop(lifetime_, [this, closed] {
            open_.removeIf([closed](const auto& open) { return open.get() == closed; });
        });
    });
    open_.append(preview);
    preview->start();
    return preview;
}
