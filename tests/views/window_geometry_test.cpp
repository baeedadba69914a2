#include <gtest/gtest.h>

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSettings>
#include <QWidget>

#include "views/WindowGeometry.h"
#include "views/frmBewerkRegel.h"
#include "views/frmFactuurBewerken.h"
#include "views/frmSelecteerDatum.h"
#include "views/frmVoorbeeld.h"

namespace {

// A screen shown inside area when there is one, else on its own; it returns the widget
// that carries the size and place.
struct Screen {
    // A plain screen of the given name that remembers its place.
    Screen(const QString& name, QMdiArea* area) : Screen(remembering(name), area) {}
    // One of the program's own screens, which remembers its place by itself.
    Screen(QWidget* made, QMdiArea* area) : widget(made) {
        if (area) {
            sub = area->addSubWindow(widget);
            sub->setAttribute(Qt::WA_DeleteOnClose, false);
        }
        widget->show();
        if (sub) {
            sub->show();
        }
    }
    static QWidget* remembering(const QString& name) {
        auto* widget = new QWidget;
        widget->setObjectName(name);
        rememberGeometry(widget);
        return widget;
    }
    ~Screen() {
        if (!sub) {
            delete widget;
        }
    }
    QWidget* window() const { return sub ? static_cast<QWidget*>(sub) : widget; }

    QWidget* widget;
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

struct SavedPlace {
    QRect saved;
    QSize shown;
};

class SavedPlaceTest : public testing::TestWithParam<SavedPlace> {};

// A place out of the frame's sight keeps only the size; a screen saved larger than the frame
// now is (a smaller display, a larger font) shrinks to the frame. Either way the whole
// screen is in sight.
TEST_P(SavedPlaceTest, TheScreenOpensWithinTheFrame) {
    QSettings("Korvane", "Lindebrug").setValue("Vensters/frmVerweg", GetParam().saved);
    QMdiArea area;
    area.setFrameShape(QFrame::NoFrame);
    area.resize(800, 600);
    area.show();
    Screen screen("frmVerweg", &area);
    EXPECT_EQ(screen.window()->size(), GetParam().shown);
    EXPECT_TRUE(area.viewport()->rect().contains(screen.window()->geometry()));
}

INSTANTIATE_TEST_SUITE_P(Places, SavedPlaceTest,
                         testing::Values(SavedPlace{QRect(5000, 5000, 300, 200), QSize(300, 200)},
                                         SavedPlace{QRect(700, 500, 300, 200), QSize(300, 200)},
                                         SavedPlace{QRect(40, 30, 1900, 1100), QSize(800, 600)}));

struct ProgramScreen {
    const char* name;
    std::function<QWidget*()> make;
    bool inFrame;
};

class ProgramScreenGeometryTest : public testing::TestWithParam<ProgramScreen> {};

// The preview and the invoicing screens reopen at the size the user gave them, in the frame
// where they open there.
TEST_P(ProgramScreenGeometryTest, ReopensWithTheSizeTheUserGaveIt) {
    QMdiArea area;
    area.resize(1000, 800);
    area.show();
    QMdiArea* where = GetParam().inFrame ? &area : nullptr;
    const QRect place(30, 20, 610, 430);
    {
        Screen first(GetParam().make(), where);
        EXPECT_EQ(first.widget->objectName(), GetParam().name);
        first.window()->setGeometry(place);
        first.window()->close();
    }
    Screen second(GetParam().make(), where);
    EXPECT_EQ(second.window()->size(), place.size());
    if (where) {
        EXPECT_EQ(second.window()->pos(), place.topLeft());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Screens, ProgramScreenGeometryTest,
    testing::Values(
        ProgramScreen{"frmVoorbeeld", [] { return new frmVoorbeeld; }, true},
        ProgramScreen{"frmFactuurBewerken", [] { return new frmFactuurBewerken; }, true},
        ProgramScreen{"frmBewerkRegel", [] { return new frmBewerkRegel; }, false},
        ProgramScreen{"frmSelecteerDatum", [] { return new frmSelecteerDatum; }, false}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
