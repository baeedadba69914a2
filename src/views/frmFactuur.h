#pragma once

#include <QMainWindow>

#include "controllers/MainWindowController.h"
#include "controllers/ShellViews.h"

class QMdiArea;
class QMenu;

// The frame of the program: the menu bar and the area every other screen opens in. Its
// logic lives in MainWindowController; the window only shows and forwards.
class frmFactuur : public QMainWindow, public IMainWindowView {
    Q_OBJECT

public:
    explicit frmFactuur(ShellServices services = ShellServices::program(),
                        QWidget* parent = nullptr);
    ~frmFactuur() override;

    // The window's load: checks and prepares the database, shows the splash screen and
    // sets up the menu. False when the program must end.
    bool startUp();

    MainWindowController& controller() { return controller_; }

    // The registered frame, if any, so that screens can open inside it.
    static frmFactuur* frame();
    // Opens a screen inside the frame (on its own when there is no frame), or brings it to
    // the front. The screen stays owned by its controller (controllers/ViewFactory.h).
    static void showInside(QWidget* screen);

    void unload() override;
    void setUpdateTool(const QString& caption, bool enabled) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    // The menu layout is fixed: the frame offers no menu to hide or rearrange its bars.
    QMenu* createPopupMenu() override;

private:
    void buildMenu();
    QMenu* addBand(QWidget* parentBand, const QString& toolName, const QString& caption,
                   const QString& bandName);
    QMenu* addDetachedBand(const QString& bandName);
    QAction* addTool(QWidget* band, const QString& toolName, const QString& caption);

    QMdiArea* mdi_;
    QAction* updateTool_ = nullptr;
    MainWindowController controller_;
};
