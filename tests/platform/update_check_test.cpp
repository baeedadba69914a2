#include <gtest/gtest.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>

#include "RecordingUiService.h"
#include "platform/PageFetcher.h"
#include "platform/modGlobal.h"

using namespace std::chrono_literals;

namespace {

// An HTTP server on 127.0.0.1 answering every GET with one fixed response; with status 0 it
// takes the request and never answers.
class LoopbackServer : public QTcpServer {
public:
    LoopbackServer(int status, const QByteArray& body) {
        listen(QHostAddress::LocalHost, 0);
        const QByteArray response =
            "HTTP/1.1 " + QByteArray::number(status) +
            " S\r\nConnection: close\r\nContent-Length: " + QByteArray::number(body.size()) +
            "\r\n\r\n" + body;
        connect(this, &QTcpServer::newConnection, [this, status, response] {
            while (QTcpSocket* socket = nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, [this, socket, status, response] {
                    if (socket->peek(socket->bytesAvailable()).contains("\r\n\r\n")) {
                        paths << QString::fromLatin1(socket->readAll().split(' ').value(1));
                        if (status != 0) {
                            socket->write(response);
                            socket->disconnectFromHost();
                        }
                    }
                });
            }
        });
    }
    QStringList paths;  // of every complete request
};

const QString VersionFile = "127.0.0.1/Lindebrug/version.inc";

struct Published {
    const char* name;
    int status;
    const char* page;
    const char* own;
    bool update;
    const char* message = "";
};

class UpdateFromServer : public ::testing::TestWithParam<Published> {};

TEST_P(UpdateFromServer, ComparesThePublishedVersionWithTheOwn) {
    const Published& c = GetParam();
    RecordingUiService ui;
    LoopbackServer server(c.status, c.page);
    HttpPageFetcher fetcher(server.serverPort(), HttpPageFetcher::DefaultTimeout);

    EXPECT_EQ(modGlobal::UpdateBeschikbaar(fetcher, VersionFile, c.own), c.update);
    EXPECT_EQ(server.paths, QStringList{"/Lindebrug/version.inc"});
    ASSERT_EQ(ui.messages.size(), *c.message ? 1 : 0);
    for (const ui::Message& shown : ui.messages) {
        EXPECT_EQ(shown.text, c.message);
        EXPECT_EQ(shown.icon, ui::Icon::None);
        EXPECT_EQ(shown.caption, QString());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Pages, UpdateFromServer,
    ::testing::Values(
        Published{"NewerRevision", 200, "NIEUWSTEVERSIE=2.4.1###", "2.4.0", true},
        Published{"SameVersion", 200, "NIEUWSTEVERSIE=2.4.1###", "2.4.1", false},
        Published{"NumbersNotTexts", 200, "x NIEUWSTEVERSIE=2.10.0###y", "2.9.0", true},
        Published{"ErrorPageInAnyCase", 200, "hTtP eRRor 404 NIEUWSTEVERSIE=9.9.9###", "2.4.0",
                  false},
        Published{"OtherErrorNumber", 200, "HTTP ERROR 405 NIEUWSTEVERSIE=9.9.9###", "2.4.0", true},
        Published{"StatusNotFound", 404, "NIEUWSTEVERSIE=9.9.9###", "2.4.0", false},
        Published{"LowerCaseKey", 200, "nieuwsteversie=9.9.9###", "2.4.0", false},
        Published{"NoEndMarker", 200, "NIEUWSTEVERSIE=9.9.9", "2.4.0", false},
        Published{"TooFewPartsRunsOut", 200, "NIEUWSTEVERSIE=2.4###", "2.4.0", false,
                  "Error 9 (Subscript buiten bereik) in procedure UpdateBeschikbaar of Module "
                  "modGlobal"},
        Published{"TooFewPartsDecidedEarly", 200, "NIEUWSTEVERSIE=3.0###", "2.4.0", true},
        Published{"LaterPartHigher", 200, "NIEUWSTEVERSIE=1.9.0###", "2.5.0", true}),
    [](const auto& info) { return std::string(info.param.name); });

// A refused connection ends the check at once (with a day's time-out, waiting would hang the
// test); a silent server is given up after its time-out. The window handles events meanwhile.
TEST(UpdateCheck, NoServerOrNoAnswerIsNoUpdateWithoutAWord) {
    RecordingUiService ui;
    LoopbackServer silent(0, {});
    const quint16 closed = LoopbackServer(0, {}).serverPort();
    for (const auto& [port, timeout] : {std::pair<quint16, std::chrono::milliseconds>{closed, 24h},
                                        {silent.serverPort(), 200ms}}) {
        bool timerFired = false;
        QTimer::singleShot(0, [&] { timerFired = true; });
        HttpPageFetcher fetcher(port, timeout);
        EXPECT_FALSE(modGlobal::UpdateBeschikbaar(fetcher, VersionFile, "2.4.0"));
        EXPECT_TRUE(timerFired) << port;
    }
    EXPECT_EQ(silent.paths.size(), 1);
    EXPECT_TRUE(ui.messages.isEmpty());
}

struct FakeFetcher : PageFetcher {
    QString page;
    QStringList addresses;
    QString fetch(const QString& address) override {
        addresses << address;
        return page;
    }
};

TEST(UpdateCheck, TheProgramAsksTheVendorsVersionFileAboutItsOwnVersion) {
    ASSERT_EQ(modGlobal::ownVersion(), LINDEBRUG_EXPECTED_VERSION);
    FakeFetcher fake;
    modGlobal::installPageFetcher(&fake);
    fake.page = "NIEUWSTEVERSIE=" LINDEBRUG_EXPECTED_VERSION "###";
    EXPECT_FALSE(modGlobal::UpdateBeschikbaar());
    fake.page = "NIEUWSTEVERSIE=999.0.0###";
    EXPECT_TRUE(modGlobal::UpdateBeschikbaar());
    modGlobal::installPageFetcher(nullptr);
    const QString address = LINDEBRUG_VENDOR_SITE "/Lindebrug/version.inc";
    EXPECT_EQ(fake.addresses, QStringList({address, address}));
}

// Only "http" in any case counts as a scheme. Without a browser the user is told the address.
TEST(OpenAddress, AddsTheSchemeAndFallsBackOnAMessage) {
    RecordingUiService ui;
    ui.openAddressSucceeds = false;
    for (const char* address : {"x.nl/a", "HTTPS://x.nl", "Http://x.nl", "ftp://x.nl"}) {
        modGlobal::openAddress(address);
    }
    EXPECT_EQ(ui.openedAddresses,
              QStringList({"https://x.nl/a", "HTTPS://x.nl", "Http://x.nl", "https://ftp://x.nl"}));
    ASSERT_EQ(ui.messages.size(), 4);
    EXPECT_TRUE(ui.messages[0].text.contains("\nhttps://x.nl/a\n"));
    EXPECT_EQ(ui.messages[0].icon, ui::Icon::Information);
}

}  // namespace
