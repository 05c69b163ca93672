#include "desktop/LineEdit.h"
#include "desktop/Actions.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#include <QKeyEvent>
#include <QPointer>

LineEdit::LineEdit(TextBox &theBox, QWidget *theParent) : QLineEdit(theParent), box(theBox)
{
    setFont(Theme::FontOf(TextStyle::Body));
    setStyleSheet(Theme::LineEditStyle());
    // Not textEdited, which is not sent when dictation or a screen reader sets the whole text.
    connect(this, &QLineEdit::textChanged, this, [this](const QString &theText) {
        if (theText != ToQString(box.Now.Caption) && !Actions::Edit(box, FromQString(theText)))
            Update();
    });
}

void LineEdit::Update()
{
    if (const QString words = ToQString(box.Now.Caption); words != text()) {
        setText(words);
        // Shows the start of a long text, such as an address.
        if (!hasFocus())
            setCursorPosition(0);
    }
}

// Shows the key to the program's handler. Returns whether the box may still take it.
bool LineEdit::TakesKey(int theKey)
{
    const QPointer<LineEdit> me(this);
    const bool isTaken = Actions::KeyPress(box, theKey) && theKey != 0;
    if (!me || !box.Owner.Visible)
        return false;
    emit HandlerRan();
    return isTaken;
}

void LineEdit::keyPressEvent(QKeyEvent *theEvent)
{
    if (theEvent->key() == Qt::Key_Return || theEvent->key() == Qt::Key_Enter) {
        if (box.Design.KeyPress)
            TakesKey('\r');
        else
            emit EnterUnused();
        return;
    }
    const QString words = theEvent->text();
    // Like QLineEdit: characters typed with Alt or AltGr count as typing, a key with Control alone is a command.
    const bool isTyping = !words.isEmpty() && words.at(0).isPrint() &&
                          (theEvent->modifiers() & ~Qt::ShiftModifier) != Qt::ControlModifier;
    if (isTyping && box.Design.KeyPress) {
        const QPointer<LineEdit> me(this);
        for (const char key : FromQString(words))
            if (!TakesKey(static_cast<unsigned char>(key)))
                return;
        if (!me)
            return;
    }
    QLineEdit::keyPressEvent(theEvent);
}
