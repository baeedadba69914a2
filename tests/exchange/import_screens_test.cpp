#include <gtest/gtest.h>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "views/frmHelpImport.h"
#include "views/frmImport.h"

namespace {

class RecordingEvents : public IImportEvents {
public:
    void importeer(const QString& table) override { calls.append("importeer " + table); }
    void toonVelden(int index) override { calls.append("toonVelden " + QString::number(index)); }
    void sluiten() override { calls.append("sluiten"); }
    QStringList calls;
};

TEST(frmImport, EveryButtonTellsTheController) {
    frmImport screen;
    RecordingEvents events;
    screen.setEvents(&events);
    for (const char* name : {"cmdKlanten", "cmdArtikelen", "cmdTarieven", "cmdOK"}) {
        auto* button = screen.findChild<QPushButton*>(name);
        ASSERT_NE(button, nullptr) << name;
        button->click();
    }
    EXPECT_EQ(events.calls,
              (QStringList{"importeer Klant", "importeer Artikel", "importeer Tarief", "sluiten"}));

    // The control array cmdHelpKlanten: one name, the index as a property.
    const QList<QPushButton*> help = screen.findChildren<QPushButton*>("cmdHelpKlanten");
    ASSERT_EQ(help.size(), 3);
    QList<int> indexes;
    for (QPushButton* button : help) {
        events.calls.clear();
        button->click();
        const int index = button->property("index").toInt();
        indexes.append(index);
        EXPECT_EQ(events.calls, QStringList{"toonVelden " + QString::number(index)});
    }
    std::sort(indexes.begin(), indexes.end());
    EXPECT_EQ(indexes, (QList<int>{0, 1, 2}));
}

TEST(frmHelpImport, ShowsTheTextAndKeepsItAsGiven) {
    frmHelpImport help;
    help.setLabelTekst("Velden:\r\nNummer;\r\n");
    EXPECT_EQ(help.LabelTekst(), "Velden:\r\nNummer;\r\n");
    EXPECT_EQ(help.findChild<QLabel*>("lblTekst")->text(), "Velden:\nNummer;\n");
    help.show();
    help.findChild<QPushButton*>("cmdClose")->click();
    EXPECT_FALSE(help.isVisible());
    EXPECT_EQ(help.result(), QDialog::Accepted);
}

}  // namespace
