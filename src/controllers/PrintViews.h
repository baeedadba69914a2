#pragma once

#include <QString>
#include <memory>

#include "printing/ReportLayout.h"

// The print preview window, as its controller sees it.

// What the preview tells its controller.
class IPreviewEvents {
public:
    virtual ~IPreviewEvents() = default;

    virtual void afdrukken() = 0;      // the print button
    virtual void opslaanAlsPdf() = 0;  // "Opslaan als PDF"
    virtual void gesloten() = 0;       // the user closed the window
};

class IPreviewView {
public:
    virtual ~IPreviewView() = default;

    virtual void setEvents(IPreviewEvents* events) = 0;
    // The pages to show; the document stays owned by the controller while the view lives.
    virtual void setDocument(const report::Document* document) = 0;
    // Shows the window, or brings it to the front, and returns at once.
    virtual void showModeless() = 0;
    virtual void hide() = 0;
};

struct PrintViewFactory {
    virtual ~PrintViewFactory() = default;
    virtual std::unique_ptr<IPreviewView> createPreview() = 0;
};
