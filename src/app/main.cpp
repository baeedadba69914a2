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
    ReportPreviews previews;
    report::installPresenter(&previews);

    frmFactuur window;
    if (!window.startUp()) {
        return EXIT_FAILURE;
    }
    // From here on every dialog belongs to the frame.
    uiService.setWindow(&window);
    window.showMaximized();
    return QApplication::exec();
}
