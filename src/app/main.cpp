#include <QApplication>
#include <cstdlib>

#include "base/UiService.h"
#include "controllers/PreviewController.h"
#include "views/QtUiService.h"
#include "views/QtViews.h"
#include "views/frmFactuur.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lindebrug"));
    installDutchTranslations(application);

    QtUiService uiService;
    ui::install(&uiService);
    installQtViews();

    frmFactuur window;
    // The previews sit in the frame but belong to their controller: they must end before
    // the frame deletes what sits in it.
    ReportPreviews previews;
    report::installPresenter(&previews);
    if (!window.startUp()) {
        return EXIT_FAILURE;
    }
    // From here on every dialog belongs to the frame.
    uiService.setWindow(&window);
    window.showMaximized();
    return QApplication::exec();
}
