// Answers real boxes as a user would: waits for the modal dialog with a title and presses one of its buttons.
#pragma once

#include <QDialog>
#include <QString>

namespace brontavia::test {

// The modal dialog on top, or null. A window that has just been closed does not count.
QDialog* TopDialog();

// The text or prompt of a box, as the user reads it.
QString TextOf(const QDialog& dialog);

// Waits for the box with this title, presses the button with the caption (without "&"), and waits until it has gone.
// Returns the box's text; fails the test when the box or the button does not come.
QString Answer(const QString& title, const QString& button);

// The same for an input box, with `typed` in place of what it proposes.
QString AnswerInput(const QString& title, const QString& typed, const QString& button = QStringLiteral("OK"));

}  // namespace brontavia::test
