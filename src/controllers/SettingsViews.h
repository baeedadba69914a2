#pragma once

#include <QString>
#include <QStringList>
#include <memory>

// The settings screens as their controller sees them: the settings view frmInstellingen,
// the margins dialog frmMarges and the font preview frmTekst. The views check the format
// of what is typed; every decision is the controller's.

class clsContrInstellingen;

class IInstellingenView {
public:
    virtual ~IInstellingenView() = default;

    virtual void SetInstellingenController(clsContrInstellingen* controller) = 0;

    // A text box by its control name (txtBedrijfsnaam, txtDagen, txtBTWTarief1, ...).
    virtual QString text(const QString& control) const = 0;
    virtual void setText(const QString& control, const QString& text) = 0;

    // The fonts of the system, as the view's platform knows them.
    virtual QStringList installedFonts() const = 0;
    // cboFont and cboPoint: their entries and the selected position (-1: none).
    virtual void setFonts(const QStringList& names, int selected) = 0;
    virtual int fontIndex() const = 0;
    virtual QString fontText() const = 0;
    virtual void setPoints(const QStringList& sizes, int selected) = 0;
    virtual QString pointText() const = 0;

    // cmbSjabloon's position.
    virtual int Sjabloon() const = 0;
    virtual void setSjabloon(int position) = 0;
    virtual bool NoSound() const = 0;
    virtual void setNoSound(bool checked) = 0;

    // imgBedrijfslogo with the picture of the file, lblGeenAfbeelding hidden; or, for an
    // empty path, the picture hidden and lblGeenAfbeelding shown.
    virtual void showLogo(const QString& path) = 0;

    // Shows the screen, or brings it to the front, and returns at once.
    virtual void show() = 0;
    virtual void close() = 0;
};

class IMargesView {
public:
    virtual ~IMargesView() = default;

    // txtFactuurBoven, txtFactuurOnder, txtBoven, txtLinks by name.
    virtual QString text(const QString& control) const = 0;
    virtual void setText(const QString& control, const QString& text) = 0;
    // Shows the dialog and returns when cmdOK or the close box ended it.
    virtual void showModal() = 0;
};

class ITekstView {
public:
    virtual ~ITekstView() = default;

    // The sample line in that font; a size of 0 keeps the view's own size.
    virtual void setPreviewFont(const QString& name, int size) = 0;
    virtual void showModal() = 0;
};

struct SettingsViewFactory {
    virtual ~SettingsViewFactory() = default;
    virtual std::unique_ptr<IInstellingenView> createInstellingen() = 0;
    virtual std::unique_ptr<IMargesView> createMarges() = 0;
    virtual std::unique_ptr<ITekstView> createTekst() = 0;
};
