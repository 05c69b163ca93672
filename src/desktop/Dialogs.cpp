#include "desktop/Dialogs.h"
#include "core/AppVars.h"
#include "desktop/Actions.h"
#include "desktop/Boxes.h"
#include "desktop/QtText.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "toolkit/Gates.h"
#include "toolkit/Services.h"
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QWidget>
#include <algorithm>

static constexpr int boxesBeforeOptOut = 2;

// Why the operation failed that theWords tell of: the system's words for the last failure with a file that they name.
static Text ReasonFor(const Text &theWords)
{
    const auto &losses = Losses::All();
    const auto found = std::find_if(losses.rbegin(), losses.rend(),
        [&](const Losses::Loss &loss) { return theWords.find(loss.File) != Text::npos; });
    return found == losses.rend() ? Text() : "Reason: " + found->Reason + ".";
}

int Dialogs::MsgBox(QWidget *theParent, const Text &thePrompt, int theFlags, const Text &theTitle)
{
    if (action != ActionsDone())
        boxesShown.clear();
    action = ActionsDone();
    const Text box = theTitle + "\n" + Boxes::WithoutNames(thePrompt);
    const int times = boxesShown[box];
    if (times < 0 && !(theFlags & msgYesNo))
        return answerOK;
    // A run whose box is hidden behind other windows would wait forever.
    if (theParent && QGuiApplication::applicationState() != Qt::ApplicationActive)
        QApplication::alert(theParent);
    bool wantsNoMore = false;
    const int Result = Boxes::Ask(
        theParent, thePrompt, theFlags, theTitle, times >= boxesBeforeOptOut, wantsNoMore, ReasonFor(thePrompt));
    if (theFlags & msgYesNo)
        Actions::Answered(Result == answerYes);
    else
        boxesShown[box] = wantsNoMore ? -1 : times + 1;
    return Result;
}

// The program reads lines that end with CR. theFile, or a copy with such line ends if it has none.
QString Dialogs::WithWindowsLineEnds(QWidget *theParent, const QString &theFile)
{
    QFile file(theFile);
    if (!file.open(QIODevice::ReadOnly))
        return theFile;
    const QByteArray text = file.readAll();
    if (!text.contains('\n') || text.contains('\r'))
        return theFile;
    copies = std::make_unique<QTemporaryDir>(QDir::temp().filePath(QStringLiteral("ferncastle-XXXXXX")));
    const QString name = QFileInfo(theFile).fileName();
    QFile copy(copies->filePath(name));
    if (!copy.open(QIODevice::WriteOnly) || copy.write(QByteArray(text).replace("\n", "\r\n")) < text.size() ||
        !copy.flush())
        return theFile;
    bool wantsNoMore = false;
    const QString words =
        QObject::tr("%1 has Linux line ends, so Ferncastle reads a copy of it with Windows line ends.");
    Boxes::Ask(theParent, FromQString(words.arg(name)), msgOK + 64, AppTitle, false, wantsNoMore);
    return copy.fileName();
}

Text Dialogs::OpenFile(QWidget *theParent, const Text &theFilter)
{
    if (lastDirectory.isEmpty())
        lastDirectory = ToQString(Files::ToHost(Paths::ProgramDir()));
    const QString file = Boxes::ChooseFile(theParent, theFilter, lastDirectory);
    if (!file.isEmpty())
        lastDirectory = QFileInfo(file).path();
    const Text Result = file.isEmpty() ? Text() : Paths::FromHost(FromQString(WithWindowsLineEnds(theParent, file)));
    Actions::Chose(Result);
    return Result;
}

bool Dialogs::IsByLink(const Losses::Loss &theLoss)
{
    return theLoss.Reason == Files::linkLeadsOut || theLoss.Reason == Files::linkLeadsToSite ||
           theLoss.Reason == Files::linkLeadsNowhere;
}

void Dialogs::ExplainLink(QWidget *theParent, const Losses::Loss &theLoss)
{
    // The link is the project's directory or a file with saved values, the first name below the program directory.
    const Text link = theLoss.File.substr(0, theLoss.File.find('\\', Paths::ProgramDir().size() + 1));
    if (!linksExplained.insert(link).second)
        return;
    const QString target = QFileInfo(ToQString(Files::ToHost(link))).symLinkTarget();
    const QString words =
        QObject::tr("Nothing could be saved here:\n\n%1\n\nThis is a link to\n\n%2\n\n%3 Ferncastle writes only in its "
                    "own folder.\n\nPlease replace the link by a folder or file, or by a link to another place in "
                    "Ferncastle's own folder, and try again.")
            .arg(ToQString(link), target,
                theLoss.Reason == Files::linkLeadsOut      ? QObject::tr("outside Ferncastle's own folder.")
                : theLoss.Reason == Files::linkLeadsToSite ? QObject::tr("where your site is, which stays as it is.")
                                                           : QObject::tr("which is not there."));
    bool wantsNoMore = false;
    Boxes::Ask(theParent, FromQString(words), msgOK + 48, AppTitle, false, wantsNoMore);
}
