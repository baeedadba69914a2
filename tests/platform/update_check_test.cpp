#include <gtest/gtest.h>

#include <QTimer>
#include <chrono>

#include "LoopbackHttpServer.h"
#include "RecordingUiService.h"
#include "platform/PageFetcher.h"
#include "platform/modGlobal.h"

using namespace std::chrono_literals;

namespace {

const QString VersionFile = QStringLiteral("127.0.0.1/Lindebrug/version.inc");

bool updateFrom(const LoopbackHttpServer& server, const QString& ownVersion) {
    HttpPageFetcher fetcher(server.port(), HttpPageFetcher::DefaultTimeout);
    return modGlobal::UpdateBeschikbaar(fetcher, VersionFile, ownVersion);
}

struct PublishedCase {
    const char* name;
    int status;
    const char* page;
    const char* ownVersion;
    bool update;
    const char* message;  // empty: no message at all
};

void PrintTo(const PublishedCase& c, std::ostream* out) {
    *out << c.name;
}

class UpdateFromServer : public ::testing::TestWithParam<PublishedCase> {};

TEST_P(UpdateFromServer, ComparesThePublishedVersionWithTheOwn) {
    const PublishedCase& c = GetParam();
    RecordingUiService ui;
    LoopbackHttpServer server(c.status, c.page);

    EXPECT_EQ(updateFrom(server, QString::fromLatin1(c.ownVersion)), c.update);

    EXPECT_EQ(server.requestedPaths(), QStringList{QStringLiteral("/Lindebrug/version.inc")});
    if (QString::fromUtf8(c.message).isEmpty()) {
        EXPECT_TRUE(ui.messages.isEmpty());
    } else {
        ASSERT_EQ(ui.messages.size(), 1);
        EXPECT_EQ(ui.lastMessage().text, QString::fromUtf8(c.message));
        EXPECT_EQ(ui.lastMessage().icon, ui::Icon::None);
        EXPECT_EQ(ui.lastMessage().caption, QString());
    }
}

constexpr char OutOfRange[] =
    "Error 9 (Subscript buiten bereik) in procedure UpdateBeschikbaar of Module modGlobal";

INSTANTIATE_TEST_SUITE_P(
    Pages, UpdateFromServer,
    ::testing::Values(
        PublishedCase{"NewerRevision", 200, "NIEUWSTEVERSIE=2.4.1###", "2.4.0", true, ""},
        PublishedCase{"SameVersion", 200, "NIEUWSTEVERSIE=2.4.1###", "2.4.1", false, ""},
        PublishedCase{"NumbersNotTexts", 200, "NIEUWSTEVERSIE=2.10.0###", "2.9.0", true, ""},
        PublishedCase{"ErrorPageMixed", 200, "Not here: hTtP eRRor 404 NIEUWSTEVERSIE=9.9.9###",
                      "2.4.0", false, ""},
        PublishedCase{"StatusNotFound", 404, "NIEUWSTEVERSIE=9.9.9###", "2.4.0", false, ""},
        PublishedCase{"LowerCaseKey", 200, "nieuwsteversie=9.9.9###", "2.4.0", false, ""},
        PublishedCase{"TooFewPartsRunsOut", 200, "NIEUWSTEVERSIE=2.4###", "2.4.0", false,
                      OutOfRange},
        PublishedCase{"TooFewPartsDecidedEarly", 200, "NIEUWSTEVERSIE=3.0###", "2.4.0", true, ""},
        PublishedCase{"LaterPartHigher", 200, "NIEUWSTEVERSIE=1.9.0###", "2.5.0", true, ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(UpdateCheck, NoServerMeansNoUpdateAndNoMessage) {
    RecordingUiService ui;
    HttpPageFetcher fetcher(LoopbackHttpServer::closedPort(), HttpPageFetcher::DefaultTimeout);

    EXPECT_FALSE(modGlobal::UpdateBeschikbaar(fetcher, VersionFile, QStringLiteral("2.4.0")));
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST(UpdateCheck, AServerThatNeverAnswersIsGivenUpAfterTheTimeOut) {
    RecordingUiService ui;
    LoopbackHttpServer server{LoopbackHttpServer::Silent{}};
    HttpPageFetcher fetcher(server.port(), 200ms);

    EXPECT_EQ(fetcher.fetch(VersionFile), QString());
    EXPECT_EQ(server.requestedPaths().size(), 1);
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST(UpdateCheck, EventsAreHandledWhileWaiting) {
    LoopbackHttpServer server{LoopbackHttpServer::Silent{}};
    HttpPageFetcher fetcher(server.port(), 200ms);
    bool timerFired = false;
    QTimer::singleShot(0, [&] { timerFired = true; });

    fetcher.fetch(VersionFile);

    EXPECT_TRUE(timerFired);
}

class FakeFetcher : public PageFetcher {
public:
    explicit FakeFetcher(QString page) : page_(std::move(page)) {}
    QString fetch(const QString& address) override {
        addresses.append(address);
        return page_;
    }
    QStringList addresses;

private:
    QString page_;
};

TEST(UpdateCheck, TheProgramAsksTheVendorsVersionFileAboutItsOwnVersion) {
    EXPECT_EQ(modGlobal::ownVersion(), QStringLiteral(LINDEBRUG_EXPECTED_VERSION));
    const QStringList own = modGlobal::ownVersion().split(QLatin1Char('.'));
    const QString nextMajor = QString::number(own.first().toInt() + 1) + QStringLiteral(".0.0");

    for (const auto& [published, update] :
         {std::pair{modGlobal::ownVersion(), false}, std::pair{nextMajor, true}}) {
        SCOPED_TRACE(published.toStdString());
        FakeFetcher fake(QStringLiteral("NIEUWSTEVERSIE=") + published + QStringLiteral("###"));
        modGlobal::installPageFetcher(&fake);
        EXPECT_EQ(modGlobal::UpdateBeschikbaar(), update);
        modGlobal::installPageFetcher(nullptr);
        EXPECT_EQ(fake.addresses,
                  QStringList{QStringLiteral(LINDEBRUG_VENDOR_SITE "/Lindebrug/version.inc")});
    }
}

TEST(UpdateCheck, VersionParser) {
    struct Case {
        const char* page;
        const char* version;
    };
    for (const Case& c :
         {Case{"xNIEUWSTEVERSIE=10.0.3###yyy###", "10.0.3"}, Case{"NIEUWSTEVERSIE=###", ""},
          Case{"NIEUWSTEVERSIE=9.9.9", ""}, Case{"HTTP ERROR 404 NIEUWSTEVERSIE=1###", ""},
          Case{"http error 405 NIEUWSTEVERSIE=1###", "1"}}) {
        SCOPED_TRACE(c.page);
        EXPECT_EQ(modGlobal::versionFromPage(QString::fromLatin1(c.page)),
                  QString::fromLatin1(c.version));
    }
}

TEST(OpenAddress, HttpInAnyCaseCountsAsAScheme) {
    struct Case {
        const char* address;
        const char* opened;
    };
    for (const Case& c :
         {Case{"lindebrug.example/downloads/updates/",
               "https://lindebrug.example/downloads/updates/"},
          Case{"http://x.nl/a", "http://x.nl/a"}, Case{"HTTPS://x.nl/a", "HTTPS://x.nl/a"},
          Case{"Http://x.nl", "Http://x.nl"}, Case{"ftp://x.nl", "https://ftp://x.nl"}}) {
        SCOPED_TRACE(c.address);
        RecordingUiService ui;
        modGlobal::openAddress(QString::fromLatin1(c.address));
        EXPECT_EQ(ui.openedAddresses, QStringList{QString::fromLatin1(c.opened)});
        EXPECT_TRUE(ui.messages.isEmpty());
    }
}

TEST(OpenAddress, WithoutABrowserTheUserIsToldWhereToGo) {
    RecordingUiService ui;
    ui.openAddressSucceeds = false;

    modGlobal::openAddress(modGlobal::updatePageAddress());

    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(ui.lastMessage().text.contains(
        QStringLiteral("https://" LINDEBRUG_VENDOR_SITE "/downloads/updates/")));
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);
}

}  // namespace
