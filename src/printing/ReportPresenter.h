#pragma once

#include <memory>

#include "printing/ReportLayout.h"

// Where a report shown on screen goes. The program installs the preview windows' controller;
// without one (lindebrug-cli, tests of the data) showing a report shows nothing.
namespace report {

class ShownReport {
public:
    virtual ~ShownReport() = default;
    virtual void hide() = 0;
};

class Presenter {
public:
    virtual ~Presenter() = default;
    // Shows the pages in a preview window, from which the user prints or saves them.
    virtual std::shared_ptr<ShownReport> present(const Document& document) = 0;
};

Presenter* presenter();
// The presenter stays owned by the caller; nullptr removes it.
void installPresenter(Presenter* presenter);

}  // namespace report
