#include "controllers/clsContrInstellingen.h"

#include <QFileInfo>

#include "base/Conversions.h"
#include "base/Error.h"
#include "base/Regional.h"
#include "base/UiService.h"
#include "controllers/MainWindowController.h"
#include "controllers/SettingsViews.h"
#include "controllers/Trapped.h"
#include "controllers/ViewFactory.h"
#include "printing/FactuurSjabloon.h"
#include "store/Recordset.h"
#include "store/clsDatabase.h"

namespace {

// Errors of Opslaan carry the short product name; every other error the program's caption.
const QString kOpslaanCaption = QStringLiteral("Lindebrug");

const QString kLogoFilter =
    QStringLiteral("Afbeelding (*.bmp;*.jpg;*.jpeg;*.gif)|*.bmp;*.jpg;*.jpeg;*.gif");

// The fonts the invoice templates are made for, and the free fonts of this platform that
// stand in for them. A font is offered when its name occurs in this text.
const QString kListedFonts = QStringLiteral(
    "MS Sans Serif;Arial;Arabic Transparent;Arial Baltic;Arial CE;Arial CYR;Arial Greek;"
    "Arial TUR;Bahnschrift Light;Bahnschrift SemiLight;Bahnschrift;Bahnschrift Condensed;"
    "Calibri;Cambria;Candara;Consolas;Corbel;Courier New;Ebrima;Gadugi;Georgia;Ink Free;"
    "Lucida Console;Malgun Gothic;Gill Sans Nova;Microsoft Himalaya;Palatino Linotype;"
    "Segoe Print;Segoe UI;Sitka Text;Tahoma;Times New Roman;Verdana;Georgia Pro;"
    "Georgia Pro Light;"
    "Liberation Sans;Liberation Serif;Liberation Mono;Carlito;Caladea;DejaVu Sans;DejaVu Serif");

const QString kPreselectedFont = QStringLiteral("courier new");

// The text boxes that map one to one onto a text of the settings, in the order they are
// copied: the company fields, then the free text and the logo.
struct TextField {
    const char* control;
    const QString& (clsObjInstellingen::*get)() const;
    void (clsObjInstellingen::*set)(const QString&);
};

using S = clsObjInstellingen;
const TextField kCompanyFields[] = {
    {"txtBedrijfsnaam", &S::Bedrijfsnaam, &S::setBedrijfsnaam},
    {"txtAdres", &S::Adres, &S::setAdres},
    {"txtPostcode", &S::Postcode, &S::setPostcode},
    {"txtPlaats", &S::Plaats, &S::setPlaats},
    {"txtLand", &S::Land, &S::setLand},
    {"txtTelefoonNummer", &S::Telefoonnummer, &S::setTelefoonnummer},
    {"txtFaxNummer", &S::Faxnummer, &S::setFaxnummer},
    {"txtBanknaam", &S::Banknaam, &S::setBanknaam},
    {"txtBankNummer", &S::Banknummer, &S::setBanknummer},
    {"txtBTWNummer", &S::BTWNummer, &S::setBTWNummer},
    {"txtKVKNummer", &S::KVKNummer, &S::setKVKNummer},
    {"txtOpmerking", &S::Opmerking, &S::setOpmerking},
    {"txtLogo", &S::Logo, &S::setLogo},
};
const TextField kContactFields[] = {
    {"txtEmail", &S::Email, &S::setEmail},
    {"txtWebsite", &S::WebSite, &S::setWebSite},
};

// The margins dialog's fields and the settings they edit.
struct MarginField {
    const char* control;
    qint16 (clsObjInstellingen::*get)() const;
    void (clsObjInstellingen::*set)(qint16);
};
const MarginField kMarginFields[] = {
    {"txtLinks", &S::MargeLinks, &S::setMargeLinks},
    {"txtBoven", &S::MargeBoven, &S::setMargeBoven},
    {"txtFactuurBoven", &S::MargeFactuurBoven, &S::setMargeFactuurBoven},
    {"txtFactuurOnder", &S::MargeFactuurOnder, &S::setMargeFactuurOnder},
};

const char* const kNumericFields[] = {"txtBTWTarief1", "txtBTWTarief2", "txtDagen"};

qint16 toInteger(const QString& text) {
    return conv::toInteger(clsContrInstellingen::getal(text));
}

QString numberText(double value) {
    return Regional::numberText(value);
}

}  // namespace

clsContrInstellingen::clsContrInstellingen(SettingsReports reports)
    : reports_(std::move(reports)) {}

clsContrInstellingen::~clsContrInstellingen() = default;

QString clsContrInstellingen::regionaal(const QString& text) {
    QString regional = text;
    regional.replace(QLatin1Char('.'), Regional::decimalSeparator());
    regional.replace(QLatin1Char(','), Regional::decimalSeparator());
    return regional;
}

bool clsContrInstellingen::isGetal(const QString& text) {
    return text.isEmpty() || conv::isNumeric(regionaal(text));
}

double clsContrInstellingen::getal(const QString& text) {
    return text.isEmpty() ? 0.0 : conv::toDouble(regionaal(text));
}

const QStringList& clsContrInstellingen::sjablonen() {
    static const QStringList names = {
        QStringLiteral("Klassiek"),
        QStringLiteral("Modern"),
        QStringLiteral("Standaard briefpapier 1"),
        QStringLiteral("Standaard briefpapier 2"),
        QStringLiteral("Briefvenster links"),
        QStringLiteral("Briefvenster rechts"),
        QStringLiteral("Briefpapier extra!"),
    };
    return names;
}

FontChoice clsContrInstellingen::kiesLettertypen(const QStringList& installed,
                                                 const QString& stored) {
    const QString wanted = stored.isEmpty() ? kPreselectedFont : stored;
    FontChoice choice;
    int found = -1;
    for (const QString& name : installed) {
        if (name.isEmpty() || !kListedFonts.contains(name) ||
            name.trimmed().toLower() == QLatin1String("courier")) {
            continue;
        }
        // Names are compared without regard to case, as the database compares them, so the
        // preselected "courier new" finds "Courier New".
        if (found < 0 && name.compare(wanted, Qt::CaseInsensitive) == 0) {
            found = static_cast<int>(choice.names.size());
        }
        choice.names << name;
    }
    choice.selected = found < 0 ? 0 : found;
    return choice;
}

void clsContrInstellingen::StartInstellingen() {
    const bool shown = trapped([this] {
        if (!view_) {
            auto view = views<SettingsViewFactory>().createInstellingen();
            view->SetInstellingenController(this);
            view_ = std::move(view);
            Ophalen();
            fillView();
        }
        view_->show();
    });
    // A screen without its settings or VAT row could save nothing: it is not shown, and the
    // register ends so that the menu tries afresh next time.
    if (!shown && !closed_) {
        closed_ = true;
        Q_EMIT closed();
    }
}

void clsContrInstellingen::Ophalen() {
    const QList<clsObjInstellingen> rows = clsObjInstellingen().Lijst(QString());
    if (rows.isEmpty()) {
        throw Error::subscriptOutOfRange(QStringLiteral("clsContrInstellingen"));
    }
    Instellingen = rows.first();
    BTW = clsObjBTW::rowInUse();
}

void clsContrInstellingen::RefreshScherm() {
    trapped([this] {
        Ophalen();
        fillView();
    });
}

void clsContrInstellingen::fillView() {
    for (const TextField& field : kCompanyFields) {
        view_->setText(field.control, (Instellingen.*field.get)());
    }
    view_->setSjabloon(Instellingen.Sjabloon());
    view_->setText(QStringLiteral("txtDagen"), QString::number(Instellingen.BetaalTermijn()));
    for (const TextField& field : kContactFields) {
        view_->setText(field.control, (Instellingen.*field.get)());
    }
    view_->setText(QStringLiteral("txtBTWTarief1"), numberText(BTW.BTW1()));
    view_->setText(QStringLiteral("txtBTWTarief2"), numberText(BTW.BTW2()));
    view_->setNoSound(Instellingen.NoSound() == 1);
    fillFonts();
    InstellenLogo(Instellingen.Logo());
}

void clsContrInstellingen::fillFonts() {
    const FontChoice fonts = kiesLettertypen(view_->installedFonts(), Instellingen.FontName());
    view_->setFonts(fonts.names, fonts.selected);
    const QStringList sizes = {QStringLiteral("10"), QStringLiteral("12")};
    view_->setPoints(sizes, static_cast<int>(sizes.indexOf(numberText(Instellingen.FontSize()))));
}

void clsContrInstellingen::InstellenLogo(const QString& pad) {
    if (!view_) {
        return;
    }
    view_->showLogo(QFileInfo(pad).isFile() ? pad : QString());
}

void clsContrInstellingen::OphalenLogo() {
    trapped([this] {
        try {
            const QString start = QFileInfo(view_->text(QStringLiteral("txtLogo"))).absolutePath();
            const QString pad =
                ui::service().openFile(QStringLiteral("Bedrijfslogo"), kLogoFilter, start);
            if (pad.isEmpty()) {
                throw Error(Error::DialogCancelled, QStringLiteral("clsContrInstellingen"),
                            QStringLiteral("Annuleren is gekozen."));
            }
            view_->setText(QStringLiteral("txtLogo"), pad);
            InstellenLogo(pad);
        } catch (const Error& error) {
            if (error.number() != Error::DialogCancelled) {
                throw;
            }
        }
    });
}

void clsContrInstellingen::ToonMarges() {
    trapped([this] {
        const std::unique_ptr<IMargesView> marges = views<SettingsViewFactory>().createMarges();
        for (const MarginField& field : kMarginFields) {
            marges->setText(field.control, QString::number((Instellingen.*field.get)()));
        }
        marges->showModal();
        // Every value is converted before any is taken, so a refused one changes nothing.
        qint16 values[std::size(kMarginFields)];
        for (std::size_t i = 0; i < std::size(kMarginFields); ++i) {
            values[i] = toInteger(marges->text(kMarginFields[i].control));
        }
        for (std::size_t i = 0; i < std::size(kMarginFields); ++i) {
            (Instellingen.*kMarginFields[i].set)(values[i]);
        }
    });
}

void clsContrInstellingen::Annuleren() {
    if (!view_ || closed_) {
        return;
    }
    closeView();
}

void clsContrInstellingen::Opslaan() {
    if (!view_ || closed_) {
        return;
    }
    const bool saved = trapped(kOpslaanCaption, [this] {
        for (const char* control : kNumericFields) {
            if (view_->text(control).isEmpty()) {
                view_->setText(control, QStringLiteral("0"));
            }
        }
        copyViewIntoSettings();
        Instellingen.Bijwerken();
        saveRatesWhenChanged();
    });
    if (saved) {
        closeView();
    }
}

void clsContrInstellingen::copyViewIntoSettings() {
    for (const TextField& field : kCompanyFields) {
        (Instellingen.*field.set)(view_->text(field.control));
    }
    Instellingen.setSjabloon(static_cast<qint16>(view_->Sjabloon()));
    for (const TextField& field : kContactFields) {
        (Instellingen.*field.set)(view_->text(field.control));
    }
    Instellingen.setBetaalTermijn(toInteger(view_->text(QStringLiteral("txtDagen"))));
    // Without a size chosen (a stored size the list does not offer) the stored one stays.
    if (!view_->pointText().isEmpty()) {
        Instellingen.setFontSize(static_cast<float>(getal(view_->pointText())));
    }
    if (view_->fontIndex() >= 0) {
        Instellingen.setFontName(view_->fontText());
    }
    Instellingen.setNoSound(view_->NoSound() ? 1 : 0);
    MainWindowController::applySoundSetting(Instellingen.NoSound());
}

void clsContrInstellingen::saveRatesWhenChanged() {
    const double tarief1 = getal(view_->text(QStringLiteral("txtBTWTarief1")));
    const double tarief2 = getal(view_->text(QStringLiteral("txtBTWTarief2")));
    if (tarief1 == BTW.BTW1() && tarief2 == BTW.BTW2()) {
        return;
    }
    // Invoices keep referring to the old row, so its rates never change: it is hidden and a
    // new row carries both rates.
    BTW.setZichtbaar(false);
    BTW.Bijwerken();
    clsObjBTW nieuw;
    nieuw.setBTW1(tarief1);
    nieuw.setBTW2(tarief2);
    nieuw.setZichtbaar(true);
    nieuw.Opslaan();
    BTW = nieuw;
}

void clsContrInstellingen::storePreviewFont() {
    // The templates opened after this in the run take the font from here, so the example
    // shows the unsaved choice.
    gVoorbeeldFont() = {view_->fontText(), view_->pointText()};
}

void clsContrInstellingen::ToonTekstvoorbeeld() {
    trapped([this] {
        storePreviewFont();
        const std::unique_ptr<ITekstView> tekst = views<SettingsViewFactory>().createTekst();
        const QString size = gVoorbeeldFont().grootte;
        tekst->setPreviewFont(gVoorbeeldFont().naam, size.isEmpty() ? 0 : toInteger(size));
        tekst->showModal();
    });
}

void clsContrInstellingen::ToonVoorbeeldFactuur() {
    try {
        storePreviewFont();
        const std::unique_ptr<Recordset> invoices =
            clsDatabase().ExecuteQuery(QStringLiteral("SELECT * FROM Factuur"));
        if (invoices->isEOF()) {
            ui::message(
                QStringLiteral("Zorg voor een voorbeeld dat er tenminste één factuur klaarstaat!"),
                ui::kProgramCaption, ui::Icon::Information);
            return;
        }
        const qint32 factuurID =
            conv::toLong(invoices->value(QStringLiteral("FactuurID")).toDouble());
        const int sjabloon = view_->Sjabloon();
        if (sjabloon >= 0 && sjabloon < sjablonen().size()) {
            reports_.voorbeeldFactuur(factuurID, static_cast<qint16>(sjabloon));
        }
    } catch (const Error& error) {
        ui::message(QStringLiteral("Error ") + QString::number(error.number()) +
                        QStringLiteral(" (") + error.description() +
                        QStringLiteral(") in procedure cmdExReport_Click of Form frmInstellingen"),
                    ui::kProgramCaption, ui::Icon::Exclamation);
    }
}

void clsContrInstellingen::PrintKlantOverzicht() {
    trapped([this] { reports_.klantOverzicht(); });
}

void clsContrInstellingen::PrintArtikelOverzicht() {
    trapped([this] { reports_.artikelOverzicht(); });
}

void clsContrInstellingen::closeView() {
    // Closing the view reports its close box as Annuleren, which finds the register closed.
    // The view stays owned here until the register itself goes.
    closed_ = true;
    Q_EMIT SluitInstellingen();
    Q_EMIT closed();
    view_->close();
}
