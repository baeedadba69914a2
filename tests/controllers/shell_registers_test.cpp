#include <gtest/gtest.h>

#include <QCoreApplication>

#include "controllers/clsControllerFactuur.h"
#include "shell_fakes.h"

namespace {

struct Entry {
    Register which;
    void (clsControllerFactuur::*start)();
};

class RegisterSlotTest : public testing::TestWithParam<Entry> {
protected:
    void start() { (controller.*GetParam().start)(); }
    RegisterController* open() const { return controller.openRegister(GetParam().which); }

    ShellLog log;
    FakeRegisters registers{log};
    clsControllerFactuur controller{registers.creator()};
};

TEST_P(RegisterSlotTest, OneControllerUntilItReportsClosing) {
    start();
    start();
    ASSERT_EQ(registers.made.size(), 1);
    const QString started = "start " + registerName(GetParam().which);
    EXPECT_EQ(log, QStringList({started, started}));

    FakeRegister* first = registers.made.first();
    first->close();
    EXPECT_EQ(open(), nullptr);

    start();
    ASSERT_EQ(registers.made.size(), 2);
    // A late second closing event of the old one must not forget its successor.
    first->close();
    EXPECT_EQ(open(), registers.made.last());

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(registers.made.first().isNull());
}

TEST_P(RegisterSlotTest, WithoutTheRegisterTheEntryDoesNothing) {
    clsControllerFactuur bare{[](Register) { return std::unique_ptr<RegisterController>(); }};
    (bare.*GetParam().start)();
    EXPECT_EQ(bare.openRegister(GetParam().which), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Registers, RegisterSlotTest,
    testing::Values(Entry{Register::Artikelen, &clsControllerFactuur::StartArtikelen},
                    Entry{Register::Klanten, &clsControllerFactuur::StartKlanten},
                    Entry{Register::Facturen, &clsControllerFactuur::StartFacturen},
                    Entry{Register::Instellingen, &clsControllerFactuur::StartInstellingen}),
    [](const auto& info) { return registerName(info.param.which).toStdString(); });

}  // namespace
