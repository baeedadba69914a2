#pragma once

#include <QString>

class PageFetcher;

// The update check: is a newer version of the program published on the vendor's web site?
// Also the vendor's addresses and opening an address in the user's browser.
namespace modGlobal {

// "major.minor.revision" of this build, e.g. "2.4.0".
QString ownVersion();

// The vendor's web site without a scheme, and the two addresses the program uses on it.
QString vendorSite();
QString versionFileAddress();
QString updatePageAddress();

// The version a version page announces ("NIEUWSTEVERSIE=2.4.1###" gives "2.4.1"), or an
// empty text for an error page or a page without one.
QString versionFromPage(const QString& page);

// True when the vendor publishes a newer version than this build. Network trouble counts as
// "no update" without a word; a published version with too few parts is reported in a
// message box and also counts as "no update".
bool UpdateBeschikbaar();
bool UpdateBeschikbaar(PageFetcher& fetcher, const QString& versionFileAddress,
                       const QString& ownVersion);

// Opens an address in the user's web browser; "https://" is put in front when the address
// does not start with "http".
void openAddress(const QString& address);

// The fetcher UpdateBeschikbaar() uses; it stays owned by the caller. nullptr restores the
// HTTP fetcher.
void installPageFetcher(PageFetcher* fetcher);

}  // namespace modGlobal
