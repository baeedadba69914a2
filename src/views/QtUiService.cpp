#include "views/QtUiService.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QProcess>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QTranslator>
#include <QUrl>
#include <limits>

const QString QtUiService::programTitle = QStringLiteral("Lindebrug");

namespace {

QMessageBox::Icon boxIcon(ui::Icon icon) {
    switch (icon) {
        case ui::Icon::Critical:
            return QMessageBox::Critical;
        case ui::Icon::Question:
            return QMessageBox::Question;
        case ui::Icon::Exclamation:
            return QMessageBox::Warning;
        case ui::Icon::Information:
            return QMessageBox::Information;
        case ui::Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons boxButtons(ui::Buttons buttons) {
    switch (buttons) {
        case ui::Buttons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case ui::Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case ui::Buttons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case ui::Buttons::RetryCancel:
            return QMessageBox::Retry | QMessageBox::Cancel;
        case ui::Buttons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton boxButton(ui::Answer answer) {
    switch (answer) {
        case ui::Answer::Cancel:
            return QMessageBox::Cancel;
        case ui::Answer::Yes:
            return QMessageBox::Yes;
        case ui::Answer::No:
            return QMessageBox::No;
        case ui::Answer::Retry:
            return QMessageBox::Retry;
        case ui::Answer::Ok:
            break;
    }
    return QMessageBox::Ok;
}

ui::Answer answerOf(QMessageBox::StandardButton button, ui::Answer fallback) {
    switch (button) {
        case QMessageBox::Ok:
            return ui::Answer::Ok;
        case QMessageBox::Cancel:
            return ui::Answer::Cancel;
        case QMessageBox::Yes:
            return ui::Answer::Yes;
        case QMessageBox::No:
            return ui::Answer::No;
        case QMessageBox::Retry:
            return ui::Answer::Retry;
        default:
            return fallback;
    }
}

// A modal progress dialog; QProgressDialog handles the window's events on every value,
// so the program stays responsive while the work runs.
class DialogProgress : public ui::Progress {
public:
    DialogProgress(const QString& title, qint64 maximum, QWidget* parent)
        : dialog_(parent), divisor_(maximum / std::numeric_limits<int>::max() + 1) {
        dialog_.setWindowTitle(title);
        dialog_.setLabelText(title);
        dialog_.setWindowModality(Qt::WindowModal);
        dialog_.setMinimumDuration(500);
        dialog_.setRange(0, static_cast<int>(qMax<qint64>(maximum, 0) / divisor_));
        dialog_.setValue(0);
    }

    void setValue(qint64 value) override {
        dialog_.setValue(static_cast<int>(qMax<qint64>(value, 0) / divisor_));
    }
    bool wasCancelled() const override { return dialog_.wasCanceled(); }

private:
    QProgressDialog dialog_;
    qint64 divisor_;  // QProgressDialog counts in int; larger totals are scaled down
};

}  // namespace

QtUiService::QtUiService(QWidget* window) : window_(window) {}

void QtUiService::setWindow(QWidget* window) {
    window_ = window;
}

QWidget* QtUiService::dialogParent() const {
    return window_ ? window_.data() : QApplication::activeWindow();
}

ui::Answer QtUiService::message(const ui::Message& message) {
    QMessageBox box(boxIcon(message.icon),
                    message.caption.isEmpty() ? programTitle : message.caption, message.text,
                    boxButtons(message.buttons), dialogParent());
    // Texts such as "<JA>" or an error description must show as written.
    box.setTextFormat(Qt::PlainText);
    if (auto* button = qobject_cast<QPushButton*>(box.button(boxButton(message.defaultButton)))) {
        box.setDefaultButton(button);
    }
    box.exec();
    if (!box.clickedButton()) {
        return message.defaultButton;
    }
    return answerOf(box.standardButton(box.clickedButton()), message.defaultButton);
}

QStringList QtUiService::fileFilters(const QString& classicFilter) {
    // A name may already show its pattern ("Tekst (*.txt)"); Qt reads the patterns from
    // the last parenthesised part, so that part is rebuilt from the pattern itself.
    static const QRegularExpression shownPattern(QStringLiteral("\\s*\\([^()]*\\)\\s*$"));
    const QStringList parts = classicFilter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1].split(u';', Qt::SkipEmptyParts).join(u' ').trimmed();
        if (pattern.isEmpty()) {
            continue;
        }
        const QString name = QString(parts[i]).remove(shownPattern).trimmed();
        filters.append(name.isEmpty() ? pattern : name + QStringLiteral(" (") + pattern + u')');
    }
    return filters;
}

QString QtUiService::openFile(const QString& title, const QString& filter,
                              const QString& startFolder) {
    return QFileDialog::getOpenFileName(dialogParent(), title, startFolder,
                                        fileFilters(filter).join(QStringLiteral(";;")));
}

QString QtUiService::saveFile(const QString& title, const QString& filter,
                              const QString& suggestedPath) {
    return QFileDialog::getSaveFileName(dialogParent(), title, suggestedPath,
                                        fileFilters(filter).join(QStringLiteral(";;")));
}

QString QtUiService::chooseFolder(const QString& prompt) {
    return QFileDialog::getExistingDirectory(dialogParent(), prompt);
}

bool QtUiService::choosePrinter(QPrinter& printer) {
    QPrintDialog dialog(&printer, dialogParent());
    return dialog.exec() == QDialog::Accepted;
}

void QtUiService::playSound(const QString&) {
    QApplication::beep();
}

bool QtUiService::openAddress(const QString& address) {
    const QUrl url = QUrl::fromUserInput(address.trimmed());
    return url.isValid() && QDesktopServices::openUrl(url);
}

bool QtUiService::startProgram(const QString& program, const QStringList& arguments) {
    return QProcess::startDetached(program, arguments);
}

std::unique_ptr<ui::Progress> QtUiService::progress(const QString& title, qint64 maximum) {
    return std::make_unique<DialogProgress>(title, maximum, dialogParent());
}

bool installDutchTranslations(QCoreApplication& application) {
    auto* translator = new QTranslator(&application);
    if (!translator->load(QStringLiteral("qtbase_nl"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    return QCoreApplication::installTranslator(translator);
}
