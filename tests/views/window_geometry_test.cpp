#include <gtest/gtest.h>

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSettings>
#include <QWidget>

#include "views/WindowGeometry.h"

namespace {

// A screen of the given name, shown inside area when there is one, else on its own; it
// returns the widget that carries the size and place.
struct Screen {
    Screen(const QString& name, QMdiArea* area) {
        widget->setObjectName(name);
        rememberGeometry(widget);
        if (area) {
            sub = area->addSubWindow(widget);
            sub->setAttribute(Qt::WA_DeleteOnClose, false);
        }
        widget->show();
        if (sub) {
            sub->show();
        }
    }
    ~Screen() {
        if (!sub) {
            delete widget;
        }
    }
    QWidget* window() const { return sub ? static_cast<QWidget*>(sub) : widget; }

    QWidget* widget = new QWidget;
    QMdiSubWindow* sub = nullptr;
};

TEST(WindowGeometryTest, AScreenReopensWithItsSizeAndPlaceOnItsOwnAndInTheFrame) {
    QMdiArea area;
    area.resize(900, 700);
    area.show();
    for (QMdiArea* where : {static_cast<QMdiArea*>(nullptr), &area}) {
        const QString name = where ? "frmInDeFrame" : "frmLos";
        const QRect place(40, 60, 420, 310);
        {
            Screen first(name, where);
            first.window()->setGeometry(place);
            first.window()->close();
        }
        Screen second(name, where);
        EXPECT_EQ(second.window()->size(), place.size()) << name.toStdString();
        if (where) {
            EXPECT_EQ(second.window()->pos(), place.topLeft());
        }
        Screen other("frmAnder", where);
        EXPECT_NE(other.window()->size(), place.size()) << "each screen keeps its own";
    }
}

TEST(WindowGeometryTest, APlaceOutOfTheFramesSightKeepsOnlyTheSize) {
    QSettings("Korvane", "Lindebrug").setValue("Vensters/frmVerweg", QRect(5000, 5000, 300, 200));
    QMdiArea area;
    area.resize(800, 600);
    area.show();
    Screen screen("frmVerweg", &area);
    EXPECT_EQ(screen.window()->size(), QSize(300, 200));
    EXPECT_TRUE(area.rect().intersects(screen.window()->geometry()));
}

}  // namespace
