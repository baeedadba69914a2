#include "views/QtViews.h"

#include "controllers/ViewFactory.h"
#include "views/QtArticleViews.h"
#include "views/QtCustomerViews.h"
#include "views/QtImportViews.h"
#include "views/QtInvoiceViews.h"
#include "views/QtLabelViews.h"
#include "views/QtPrintViews.h"
#include "views/QtSettingsViews.h"
#include "views/QtShellViews.h"

namespace {

// The Qt factories hold no state: one of each serves the whole run.
template <class QtFactory, class Factory>
void install() {
    static QtFactory factory;
    installViews<Factory>(&factory);
}

}  // namespace

void installQtViews() {
    install<QtShellViews, ShellViewFactory>();
    install<QtImportViews, ImportViewFactory>();
    install<QtArticleViews, ArticleViewFactory>();
    install<QtCustomerViews, CustomerViewFactory>();
    install<QtSettingsViews, SettingsViewFactory>();
    install<QtLabelViews, LabelViewFactory>();
    install<QtInvoiceViews, InvoiceViewFactory>();
    install<QtPrintViews, PrintViewFactory>();
}
