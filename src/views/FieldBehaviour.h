#pragma once

#include <QString>
#include <functional>

class QLineEdit;

// How the program's text boxes behave as the user types and moves on. Each routine attaches
// to the field and lives as long as it does.
namespace field {

// Only these characters (and Backspace) may be typed; any other character is dropped with
// a beep. Keys that type nothing (arrows, Tab, Delete, F1) work as always.
void acceptOnly(QLineEdit* edit, const QString& characters);

// The whole text is selected whenever the field receives the focus.
void selectAllOnFocus(QLineEdit* edit);

// When the field is left holding a text that valid refuses: the exclamation box
// "Ongeldige waarde ingevoerd" under the caption, and the focus back in the field with its
// whole text selected.
void checkOnLeave(QLineEdit* edit, std::function<bool(const QString&)> valid,
                  const QString& caption);

// A field left empty is set to "0".
void zeroWhenLeftEmpty(QLineEdit* edit);

inline const QString kDigits = QStringLiteral("0123456789");

}  // namespace field
