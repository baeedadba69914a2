#include <gtest/gtest.h>
#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QMetaEnum>
#include <QPushButton>
#include <QTimer>

#include "grid_qstring.h"
#include "views/QtUiService.h"

namespace {

TEST(UiService, ClassicFilterBecomesQtFilterList) {
    for (auto [classic, expected] :
         {std::pair{"Tekst|*.txt|CSV|*.csv", QStringList{"Tekst (*.txt)", "CSV (*.csv)"}},
          std::pair{"Import|*.txt;*.csv", QStringList{"Import (*.txt *.csv)"}},
          std::pair{"Back-up (*.bu1)|*.bu1", QStringList{"Back-up (*.bu1)"}},
          std::pair{"|*.bu1", QStringList{"*.bu1"}},
          std::pair{"Tekst|*.txt|Los", QStringList{"Tekst (*.txt)"}},
          std::pair{"", QStringList{}}}) {
        SCOPED_TRACE(classic);
        EXPECT_EQ(QtUiService::fileFilters(classic), expected);
    }
}

template <typename Enum>
QString key(int value) {
    return QMetaEnum::fromType<Enum>().valueToKey(value);
}

struct MessageCase {
    const char* name;
    ui::Message message;
    QMessageBox::StandardButton click;
    ui::Answer answer;
    const char* shown;  // title, icon, default button, format: text
};
class UiServiceMessage : public ::testing::TestWithParam<MessageCase> {};

TEST_P(UiServiceMessage, ShowsTheBoxAndAnswersWithTheClickedButton) {
    const MessageCase& c = GetParam();
    QString shown;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        shown = box->windowTitle() + ", " + key<QMessageBox::Icon>(box->icon()) + ", " +
                key<QMessageBox::StandardButtons>(box->standardButton(box->defaultButton())) +
                ", " + key<Qt::TextFormat>(box->textFormat()) + ": " + box->text();
        box->button(c.click)->click();
    });

    EXPECT_EQ(QtUiService().message(c.message), c.answer);
    EXPECT_EQ(shown, c.shown);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, UiServiceMessage,
    ::testing::Values(
        MessageCase{"NoCaptionShowsTheProgramTitle",
                    {"Databasebestand ontbreekt", "", ui::Icon::Critical},
                    QMessageBox::Ok,
                    ui::Answer::Ok,
                    "Lindebrug, Critical, Ok, PlainText: Databasebestand ontbreekt"},
        MessageCase{"QuestionWithNoAsDefault",
                    {"Weet u het zeker?", "Verwijderen module(n)", ui::Icon::Question,
                     ui::Buttons::YesNo, ui::Answer::No},
                    QMessageBox::Yes,
                    ui::Answer::Yes,
                    "Verwijderen module(n), Question, No, PlainText: Weet u het zeker?"},
        MessageCase{"ExclamationShowsMarkupAsText",
                    {"Details: 13 <JA> & meer", "KORVANE LINDEBRUG", ui::Icon::Exclamation},
                    QMessageBox::Ok,
                    ui::Answer::Ok,
                    "KORVANE LINDEBRUG, Warning, Ok, PlainText: Details: 13 <JA> & meer"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(UiService, DutchButtonTexts) {
    ASSERT_TRUE(installDutchTranslations(*QCoreApplication::instance()));
    QMessageBox box(QMessageBox::Question, "", "", QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "&Ja");
    EXPECT_EQ(box.button(QMessageBox::No)->text(), "&Nee");
}

}  // namespace
