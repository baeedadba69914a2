#include <gtest/gtest.h>

#include "RecordingUiService.h"
#include "base/Error.h"
#include "controllers/Trapped.h"
#include "store/clsFoutCodeVertaler.h"

namespace {

TEST(TrappedTest, AnErrorIsShownTranslatedUnderItsCaptionAndTheOperationFails) {
    RecordingUiService ui;
    const Error error(Error::PathFileAccess, "test", "Geen toegang");
    const QString translated = clsFoutCodeVertaler().GebruikerMelding(error);
    for (const QString& caption : {QString("Instellingen"), QString()}) {
        bool afterThrow = false;
        const auto op = [&] {
            throw error;
            afterThrow = true;
        };
        EXPECT_FALSE(caption.isNull() ? trapped(op) : trapped(caption, op));
        EXPECT_FALSE(afterThrow);
        EXPECT_TRUE(ui.lastMessageIs(translated, caption.isNull() ? "KORVANE LINDEBRUG" : caption,
                                     ui::Icon::Exclamation));
    }
    EXPECT_EQ(ui.messages.size(), 2);
}

TEST(TrappedTest, AnOperationThatSucceedsShowsNothing) {
    RecordingUiService ui;
    int runs = 0;
    EXPECT_TRUE(trapped([&] { ++runs; }));
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(ui.messages.isEmpty());
}

}  // namespace
