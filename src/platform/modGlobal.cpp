#include "platform/modGlobal.h"

#include <QStringList>

#include "base/Conversions.h"
#include "base/Error.h"
#include "base/UiService.h"
#include "platform/PageFetcher.h"

namespace {

PageFetcher* installedFetcher = nullptr;

PageFetcher& pageFetcher() {
    static HttpPageFetcher http;
    return installedFetcher ? *installedFetcher : http;
}

double partAt(const QStringList& parts, qsizetype index) {
    if (index >= parts.size()) {
        throw Error::subscriptOutOfRange(QStringLiteral("modGlobal"));
    }
    return conv::leadingNumber(parts.at(index));
}

// Each position is weighed on its own and a higher own part does not end the comparison, so
// own 2.5.0 against published 1.9.0 reports an update. That is the check's long-standing
// answer and it is kept on purpose.
bool isNewer(const QString& published, const QString& own) {
    const QStringList ownParts = own.split(QLatin1Char('.'));
    const QStringList publishedParts = published.split(QLatin1Char('.'));
    for (qsizetype i = 0; i < ownParts.size(); ++i) {
        if (partAt(ownParts, i) < partAt(publishedParts, i)) {
            return true;
        }
    }
    return false;
}

void offerProgramChoice(const QString& address) {
#ifdef Q_OS_WIN
    ui::service().startProgram(QStringLiteral("RUNDLL32.EXE"),
                               {QStringLiteral("shell32.dll,OpenAs_RunDLL ") + address});
#else
    ui::message(QStringLiteral("Er is op deze computer geen programma ingesteld om dit adres te "
                               "openen:\n") +
                    address + QStringLiteral("\n\nOpen het adres zelf in uw webbrowser."),
                QString(), ui::Icon::Information);
#endif
}

}  // namespace

namespace modGlobal {

QString ownVersion() {
    return QString::number(LINDEBRUG_VERSION_MAJOR) + QLatin1Char('.') +
           QString::number(LINDEBRUG_VERSION_MINOR) + QLatin1Char('.') +
           QString::number(LINDEBRUG_VERSION_REVISION);
}

QString vendorSite() {
    return QStringLiteral(LINDEBRUG_VENDOR_SITE);
}

QString versionFileAddress() {
    return vendorSite() + QStringLiteral("/Lindebrug/version.inc");
}

QString updatePageAddress() {
    return vendorSite() + QStringLiteral("/downloads/updates/");
}

QString versionFromPage(const QString& page) {
    static const QString key = QStringLiteral("NIEUWSTEVERSIE=");
    if (page.toLower().contains(QStringLiteral("http error 404"))) {
        return {};
    }
    const qsizetype keyAt = page.indexOf(key, 0, Qt::CaseSensitive);
    if (keyAt < 0) {
        return {};
    }
    const qsizetype start = keyAt + key.size();
    const qsizetype end = page.indexOf(QStringLiteral("###"), start);
    // A page cut off before its end marker is as good as no page.
    if (end < 0) {
        return {};
    }
    return page.mid(start, end - start);
}

bool UpdateBeschikbaar() {
    return UpdateBeschikbaar(pageFetcher(), versionFileAddress(), ownVersion());
}

bool UpdateBeschikbaar(PageFetcher& fetcher, const QString& versionFileAddress,
                       const QString& ownVersion) {
    try {
        QString published = versionFromPage(fetcher.fetch(versionFileAddress));
        if (published.isEmpty()) {
            published = ownVersion;
        }
        return isNewer(published, ownVersion);
    } catch (const Error& error) {
        ui::message(QStringLiteral("Error ") + QString::number(error.number()) +
                    QStringLiteral(" (") + error.description() +
                    QStringLiteral(") in procedure UpdateBeschikbaar of Module modGlobal"));
        return false;
    }
}

void openAddress(const QString& address) {
    const bool hasScheme = address.toUpper().startsWith(QStringLiteral("HTTP"));
    const QString target = hasScheme ? address : QStringLiteral("https://") + address;
    if (!ui::service().openAddress(target)) {
        offerProgramChoice(target);
    }
}

void installPageFetcher(PageFetcher* fetcher) {
    installedFetcher = fetcher;
}

}  // namespace modGlobal
