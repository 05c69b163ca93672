#include "desktop/Boxes.h"
#include "core/AppVars.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#include "toolkit/Services.h"
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QTextDocument>
#include <QTextEdit>
#include <algorithm>
#include <cmath>

namespace Boxes
{
// Shows the text of a label in a view that breaks a long path anywhere. A label breaks only between words, and the text
// must not contain anything that is not part of the path: users copy it into an error report.
static void ShowInFull(QMessageBox &theBox, const QString &theLabel)
{
    auto *label = theBox.findChild<QLabel *>(theLabel);
    if (!label)
        return;
    auto *words = new QTextEdit(&theBox);
    words->setObjectName(theLabel + QStringLiteral("_words"));
    words->setReadOnly(true);
    words->setAccessibleName(label->text());
    words->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    words->setFocusPolicy(Qt::ClickFocus);
    words->setStyleSheet(Theme::HelpTextStyle());
    words->setFrameShape(QFrame::NoFrame);
    words->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    words->document()->setDocumentMargin(0);
    words->setPlainText(label->text());
    // Measured in another document, since the view breaks its own one into lines for its present size.
    constexpr double widest = 460;
    constexpr int frame = 4;  // the border and its rounding
    QTextDocument measure(label->text());
    measure.setDefaultFont(words->font());
    measure.setDocumentMargin(0);
    const double width = std::min(widest, std::ceil(measure.idealWidth()));
    QTextOption breaks;
    breaks.setWrapMode(words->wordWrapMode());
    measure.setDefaultTextOption(breaks);
    measure.setTextWidth(width);
    const int highest = theBox.screen()->availableGeometry().height() / 2;
    const int height = static_cast<int>(std::ceil(measure.size().height())) + frame;
    words->setVerticalScrollBarPolicy(height > highest ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    words->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    words->setFixedSize(static_cast<int>(width) + frame + (height > highest ? 12 : 0), std::min(height, highest));
    delete theBox.layout()->replaceWidget(label, words);
    label->hide();
}

// To be called last, when the box has all its parts. All text is plain and can be selected.
static void ApplyStyle(QMessageBox &theBox)
{
    theBox.setTextFormat(Qt::PlainText);
    theBox.setStyleSheet(Theme::MessageBoxStyle());
    theBox.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowCloseButtonHint);
    for (QAbstractButton *button : theBox.buttons())
        button->setIcon(QIcon());
    for (auto *label : theBox.findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
    ShowInFull(theBox, QStringLiteral("qt_msgbox_label"));
    ShowInFull(theBox, QStringLiteral("qt_msgbox_informativelabel"));
}

Text WithoutNames(const Text &thePrompt)
{
    // The program's messages name a path, or something in quotation marks or behind a colon and two blanks.
    static const QRegularExpression names(QStringLiteral("[A-Za-z]:\\\\[^\\n\"]*|:  [^\\n]*|\"[^\\n\"]*\"|[0-9]+"));
    return FromQString(ToQString(thePrompt).remove(names));
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

int Ask(QWidget *theParent, const Text &thePrompt, int theFlags, const Text &theTitle, bool hasOptOut,
    bool &wantsNoMore, const Text &theReason)
{
    QMessageBox box(IconOf(theFlags), ToQString(theTitle), ToQString(thePrompt), QMessageBox::NoButton, theParent);
    if (!theReason.empty())
        box.setInformativeText(ToQString(theReason));
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

QString ChooseFileToSave(QWidget *theParent, const QString &theTitle, const QString &theStart)
{
    return QFileDialog::getSaveFileName(theParent, theTitle, theStart);
}

// What the user has not lost.
static QString WhatIsKept()
{
    if (ProjectNumber.empty())
        return QObject::tr("Your projects are kept.");
    return QObject::tr("All that you have entered is kept in project %1, and so are the files written so far.")
        .arg(ToQString(ProjectNumber));
}

void ShowFailure(QWidget *theParent, const RuntimeFailure &theFailure)
{
    QMessageBox box(QMessageBox::Critical, ToQString(DefaultBoxTitle),
        QObject::tr("Ferncastle must close because of an unexpected error."), QMessageBox::Ok, theParent);
    box.setInformativeText(ToQString(theFailure.What + "\r\n\r\n" + theFailure.Where + "\r\n\r\n") + WhatIsKept());
    ApplyStyle(box);
    box.exec();
}

void ShowStandstill(QWidget *theParent, const Text &theWhere, const Text &theWhy)
{
    QMessageBox box(QMessageBox::Warning, ToQString(DefaultBoxTitle.empty() ? "Ferncastle" : DefaultBoxTitle),
        QObject::tr("Ferncastle cannot finish this run."), QMessageBox::NoButton, theParent);
    QString words = ToQString(theWhy) + QStringLiteral("\n\n") + WhatIsKept();
    if (theWhere == "MakeKeywordedFileName")
        words += QObject::tr(" To go on, start Ferncastle again and load the project. Then add keywords, or lower the "
                             "number of keywords in a file name.");
    box.setInformativeText(words + QStringLiteral("\n\n") + ToQString(theWhere));
    box.addButton(QObject::tr("End Program"), QMessageBox::AcceptRole);
    ApplyStyle(box);
    box.exec();
}
}  // namespace Boxes
