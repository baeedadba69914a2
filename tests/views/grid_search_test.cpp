#include <QEventLoop>
#include <QLineEdit>
#include <QTimer>

#include "grid_fixture.h"
#include "views/clsFlexgrid.h"

namespace {

constexpr auto F = clsFlexgrid::Direction::Forward;
constexpr auto B = clsFlexgrid::Direction::Backward;

class SearchTest : public GridTest {
protected:
    SearchTest() { fill(customers); }

    bool isPink() const {
        return searchBox.palette().color(QPalette::Base) == QColor(255, 224, 255);
    }

    QLineEdit searchBox;
    clsFlexgrid flexgrid{grid, searchBox};
};

// One user's searches in a row. Past the last match the last match stays selected and the box
// turns pale pink; a match turns it normal. A new text searches from the top, in any case. The
// header ("Naam") never matches; a row's cells are searched joined by tabs.
TEST_F(SearchTest, SelectsTheMatchingRows) {
    struct Step {
        const char* text;
        clsFlexgrid::Direction direction;
        int row;  // selected afterwards; 0: none
        bool found;
    };
    const Step steps[] = {
        {"amsterdam", F, 1, true},   {"amsterdam", F, 3, true}, {"amsterdam", F, 5, true},
        {"amsterdam", F, 5, false},  {"amsterdam", B, 3, true}, {"amsterdam", B, 1, true},
        {"amsterdam", B, 1, false},  {"amsterdam", F, 3, true}, {"JANS", F, 1, true},
        {"JANS", F, 4, true},        {"naam", F, 0, false},     {"1003\tbakker", F, 3, true},
        {"1003bakker", F, 0, false}, {"", F, 1, true},          {"", F, 2, true}};
    for (const Step& step : steps) {
        SCOPED_TRACE(std::string(step.text) + (step.direction == F ? " >" : " <"));
        searchBox.setText(step.text);
        EXPECT_EQ(flexgrid.search(step.direction), step.found);
        EXPECT_EQ(grid.selectedRows(), step.row ? QList<int>{step.row} : QList<int>{});
        EXPECT_EQ(isPink(), !step.found);
        EXPECT_TRUE(grid.redraw());
    }
}

// The search goes on from the last match's row, which a refilled shorter list no longer has.
TEST_F(SearchTest, AMatchIsScrolledToTheTopAndARefilledListIsSearchedFromItsTop) {
    QStringList rows;
    for (int i = 1; i <= 300; ++i) {
        rows << QString("%1\tRij %1").arg(i);
    }
    fill(rows);
    searchBox.setText("100");
    ASSERT_TRUE(flexgrid.search(F));
    EXPECT_EQ(grid.currentRow(), 100);
    EXPECT_EQ(grid.topRow(), 100);

    fill(customers.mid(0, 2));
    EXPECT_TRUE(flexgrid.search(F));
    EXPECT_EQ(grid.currentRow(), 1);
}

TEST_F(SearchTest, TypingSearchesOnceWhenTheTimerFires) {
    QTimer tmrZoek;
    flexgrid.connectSearchTimer(tmrZoek);
    int fired = 0;
    QEventLoop typingPaused;
    QObject::connect(&tmrZoek, &QTimer::timeout, [&] {
        ++fired;
        typingPaused.quit();
    });

    for (const char* typed : {"v", "vi", "vis"}) {
        searchBox.setText(typed);
    }
    EXPECT_EQ(tmrZoek.interval(), 350);
    EXPECT_EQ(grid.currentRow(), 0);                              // nothing searched while typing
    QTimer::singleShot(10000, &typingPaused, &QEventLoop::quit);  // only if it never fires
    typingPaused.exec();

    EXPECT_EQ(fired, 1);
    EXPECT_FALSE(tmrZoek.isActive());
    EXPECT_EQ(grid.currentRow(), 5);
}

TEST_F(SearchTest, AHeaderClickSortsAndASecondClickReverses) {
    flexgrid.connectSorting();
    for (auto [col, first] :
         {std::pair{1, "Bakker"}, std::pair{1, "Visser"}, std::pair{0, "Jansen"}}) {
        Q_EMIT grid.headerClicked(col);
        EXPECT_EQ(grid.textMatrix(1, 1), first);
    }
}

}  // namespace
