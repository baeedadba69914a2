#pragma once

#include <QString>
#include <functional>

class QLineEdit;
class QWidget;

// The typing and leaving rules of the program's input fields, written once for every screen.
namespace fieldrules {

inline const QString kDigits = QStringLiteral("0123456789");

// Refuses, with a beep, every typed character that is not in allowed, and Backspace unless
// backspaceAllowed. Keys that type nothing (arrows, Tab, Enter, Escape, Delete, shortcuts)
// pass.
void filterKeys(QLineEdit* field, const QString& allowed, bool backspaceAllowed);

// When the user leaves the field for another control of the screen and valid(text) is
// false: shows text under caption with the exclamation icon, selects the field's text and
// keeps the focus there. Otherwise runs accepted (which may reshow the value). Leaving for
// a control marked with keepsInvalidInput (a cancel button) checks nothing.
void checkOnLeave(QLineEdit* field, std::function<bool(const QString&)> valid, const QString& text,
                  const QString& caption, std::function<void()> accepted = {});

// Marks a control that may be reached with invalid input left behind: cancelling discards it.
void keepsInvalidInput(QWidget* control);

}  // namespace fieldrules
