#pragma once

#include <QString>
#include <QStringList>
#include <memory>

// The label screen frmEtiketten as its controller sees it.

class IEtikettenEvents {
public:
    virtual ~IEtikettenEvents() = default;
    virtual void velGekozen(int index) = 0;  // cmbVel
    virtual void toon() = 0;                 // cmdToon: the sheet in the preview
    virtual void sluiten() = 0;              // cmdSluiten or the close box
};

class IEtikettenView {
public:
    virtual ~IEtikettenView() = default;

    virtual void setEvents(IEtikettenEvents* events) = 0;
    // What is printed: "30 klanten", say.
    virtual void setOnderwerp(const QString& text) = 0;
    // cmbVel: the sheets and the chosen one.
    virtual void setVellen(const QStringList& names, int selected) = 0;
    virtual int vel() const = 0;
    // txtPositie: the first free label of the sheet, 1 to last.
    virtual void setPosities(int last) = 0;
    virtual int positie() const = 0;

    virtual void show() = 0;
    virtual void close() = 0;
};

struct LabelViewFactory {
    virtual ~LabelViewFactory() = default;
    virtual std::unique_ptr<IEtikettenView> createEtiketten() = 0;
};
