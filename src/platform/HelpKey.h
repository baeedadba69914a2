#pragma once

#include <QString>

// The pages of the manual that the screens open.
namespace HelpPage {
inline constexpr char Introductie[] = "Introductie.htm";
inline constexpr char Artikelen[] = "artikelen.htm";
inline constexpr char Klanten[] = "klanten.htm";
inline constexpr char Instellingen[] = "Instellingen.htm";
}  // namespace HelpPage

// F1 on a screen opens that screen's page of the manual. A view passes every key press here
// with its page:  if (HelpKey::showPageOnHelpKey(event->key(), HelpPage::Klanten)) return;
namespace HelpKey {

// F1 as the classic key-down code, for callers that still speak in those codes.
inline constexpr int ClassicF1 = 112;

// True for F1, as a Qt key or as the classic code.
bool isHelpKey(int key);

// Opens the page when the key is F1; true when it did (the key is then used up).
bool showPageOnHelpKey(int key, const QString& page);

}  // namespace HelpKey
