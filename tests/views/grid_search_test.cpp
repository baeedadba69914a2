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

struct Step {
    QString text;
    clsFlexgrid::Direction direction;
    int row;  // selected afterwards; 0: none
    bool found;
};
struct SearchCase {
    const char* name;
    QList<Step> steps;
};
class GridSearch : public SearchTest, public ::testing::WithParamInterface<SearchCase> {};

TEST_P(GridSearch, SelectsTheMatchingRows) {
    for (const Step& step : GetParam().steps) {
        SCOPED_TRACE(step.text.toStdString() + (step.direction == F ? " >" : " <"));
        searchBox.setText(step.text);
        EXPECT_EQ(flexgrid.search(step.direction), step.found);
        EXPECT_EQ(grid.selectedRows(), step.row ? QList<int>{step.row} : QList<int>{});
        EXPECT_EQ(isPink(), !step.found);
        EXPECT_TRUE(grid.redraw());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, GridSearch,
    ::testing::Values(
        // Past the last match the last match stays selected; a match turns the box normal.
        SearchCase{"ForwardAndBackward",
                   {{"amsterdam", F, 1, true},
                    {"amsterdam", F, 3, true},
                    {"amsterdam", F, 5, true},
                    {"amsterdam", F, 5, false},
                    {"amsterdam", B, 3, true},
                    {"amsterdam", B, 1, true},
                    {"amsterdam", B, 1, false}}},
        SearchCase{"NewTextFromTheTopWithoutRegardToCase",
                   {{"amsterdam", F, 1, true},
                    {"amsterdam", F, 3, true},
                    {"JANS", F, 1, true},
                    {"JANS", F, 4, true}}},
        SearchCase{"HeaderNeverMatches", {{"amsterdam", F, 1, true}, {"naam", F, 0, false}}},
        SearchCase{"CellsJoinedByTabs",
                   {{"1003\tbakker", F, 3, true}, {"1003bakker", F, 0, false}}},
        SearchCase{"EmptyTextMatchesEveryRow", {{"", F, 1, true}, {"", F, 2, true}}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(SearchTest, AMatchIsScrolledToTheTop) {
    fillNumbered(300);
    searchBox.setText("rij 150");
    ASSERT_TRUE(flexgrid.search(F));
    EXPECT_EQ(grid.currentRow(), 150);
    EXPECT_EQ(grid.topRow(), 150);
}

TEST_F(SearchTest, ARefilledShorterListIsSearchedFromTheTop) {
    searchBox.setText("100");
    for (int i = 0; i < 4; ++i) flexgrid.search(F);
    ASSERT_EQ(flexgrid.searchPosition(), 4);
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

    for (const char* typed : {"v", "vi", "vis"}) searchBox.setText(typed);
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
