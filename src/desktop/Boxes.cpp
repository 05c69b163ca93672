#include "desktop/Boxes.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#include "toolkit/Services.h"
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace Boxes
{
// All text is plain and can be selected, so that users can copy it into an error report.
static void ApplyStyle(QMessageBox &theBox)
{
    // Includes the label of the informative text, whose format the box would otherwise guess.
    for (auto *label : theBox.findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
    theBox.setTextFormat(Qt::PlainText);
    theBox.setTextInteractionFlags(Qt::TextSelectableByMouse);
    theBox.setStyleSheet(Theme::MessageBoxStyle());
    theBox.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowCloseButtonHint);
    for (QAbstractButton *button : theBox.buttons())
        button->setIcon(QIcon());
}

// Adds a zero-width space after each backslash, so that a long path can wrap to the next line.
static QString Breakable(const Text &theText)
{
    return ToQString(theText).replace(QStringLiteral("\\"), QStringLiteral("\\\u200B"));
}

static QMessageBox::Icon IconOf(int theFlags)
{
    switch (theFlags & 0x70) {
    case msgStop:
        return QMessageBox::Critical;
    case 32:
        return QMessageBox::Question;
    case 48:
        return QMessageBox::Warning;
    case 64:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

int Ask(
    QWidget *theParent, const Text &thePrompt, int theFlags, const Text &theTitle, bool hasOptOut, bool &wantsNoMore)
{
    QMessageBox box(IconOf(theFlags), ToQString(theTitle), Breakable(thePrompt), QMessageBox::NoButton, theParent);
    wantsNoMore = false;
    if (!(theFlags & msgYesNo)) {
        box.addButton(QMessageBox::Ok);
        QCheckBox optOut(QObject::tr("Don't show this message again during this run"));
        if (hasOptOut)
            box.setCheckBox(&optOut);
        ApplyStyle(box);
        box.exec();
        wantsNoMore = hasOptOut && optOut.isChecked();
        box.setCheckBox(nullptr);
        return answerOK;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(theFlags & msgThirdDefault ? QMessageBox::No : QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    ApplyStyle(box);
    return box.exec() == QMessageBox::Yes ? answerYes : answerNo;
}

// "Words (*.txt)|*.txt|(*.*)|*.*|" as "Words (*.txt);;All files (*)".
static QString FiltersOf(const Text &theFilter)
{
    QStringList Result;
    const QStringList pieces = ToQString(theFilter).split('|', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        const QString words = pieces[i].left(pieces[i].indexOf('(')).trimmed();
        const bool isAll = pieces[i + 1] == QStringLiteral("*.*");
        Result += (words.isEmpty() ? QObject::tr("All files") : words) + QStringLiteral(" (") +
                  (isAll ? QStringLiteral("*") : pieces[i + 1]) + QStringLiteral(")");
    }
    return Result.join(QStringLiteral(";;"));
}

QString ChooseFile(QWidget *theParent, const Text &theFilter, const QString &theStart)
{
    return QFileDialog::getOpenFileName(theParent, QObject::tr("Open"), theStart, FiltersOf(theFilter));
}

void ShowFailure(QWidget *theParent, const RuntimeFailure &theFailure)
{
    QMessageBox box(QMessageBox::Critical, ToQString(DefaultBoxTitle),
        QObject::tr("Ferncastle must close because of an unexpected error."), QMessageBox::Ok, theParent);
    box.setInformativeText(Breakable(theFailure.What + "\r\n\r\n" + theFailure.Where) +
                           QObject::tr("\n\nThe files written so far are kept."));
    ApplyStyle(box);
    box.exec();
}

bool WantsToWait(QWidget *theParent, const Text &theWhere, const Text &theWhy)
{
    const QString title = ToQString(DefaultBoxTitle.empty() ? "Ferncastle" : DefaultBoxTitle);
    QMessageBox box(
        QMessageBox::Warning, title, QObject::tr("Ferncastle is not responding"), QMessageBox::NoButton, theParent);
    box.setInformativeText(Breakable(theWhy + "\r\n\r\n" + theWhere));
    const QPushButton *wait = box.addButton(QObject::tr("Wait"), QMessageBox::RejectRole);
    box.setDefaultButton(box.addButton(QObject::tr("End Program"), QMessageBox::AcceptRole));
    ApplyStyle(box);
    box.exec();
    return box.clickedButton() == wait;
}
}  // namespace Boxes
