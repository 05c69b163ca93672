#include "desktop/LineEdit.h"
#include "desktop/Actions.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#include <QKeyEvent>
#include <QPointer>
#include <QRegularExpression>
#include <QToolTip>

static const QRegularExpression lineBreaks(QStringLiteral("[\\r\\n\u2028\u2029]+"));

LineEdit::LineEdit(TextBox &theBox, QWidget *theParent) : QLineEdit(theParent), box(theBox)
{
    setFont(Theme::FontOf(TextStyle::Body));
    setStyleSheet(Theme::LineEditStyle());
    // A pasted list of keywords may be long.
    setMaxLength(1 << 24);
    // Not textEdited, which is not sent when dictation or a screen reader sets the whole text.
    connect(this, &QLineEdit::textChanged, this, [this](const QString &theText) {
        if (theText.contains(lineBreaks))
            EnterLines(theText);
        else if (theText != ToQString(box.Now.Caption) && !Actions::Edit(box, FromQString(theText)))
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

// Several lines have been pasted or dropped. A box that uses Enter takes them one by one, as if they had been typed; in
// any other box they make one line.
void LineEdit::EnterLines(const QString &theText)
{
    QStringList lines = theText.split(lineBreaks, Qt::SkipEmptyParts);
    if (!box.Design.KeyPress) {
        setText(lines.join(' '));
        return;
    }
    QStringList refused;
    for (const QString &line : lines) {
        Actions::Edit(box, FromQString(line));
        TakesKey('\r');
        if (!box.Owner.Visible)
            return;
        // The program empties the box when it has taken the line.
        if (!box.Now.Caption.empty())
            refused += line;
    }
    setText(refused.value(0));
    if (refused.size() > 1)
        QToolTip::showText(
            mapToGlobal(rect().bottomLeft()), ToolTipText(tr("Not added:\n%1").arg(refused.join('\n'))), this);
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
