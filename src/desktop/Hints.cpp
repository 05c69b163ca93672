#include "desktop/Hints.h"
#include "core/AppVars.h"
#include "core/FileHandle.h"
#include "core/KeywordList.h"
#include "core/TextOps.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "wizard/frmDirectory.h"
#include "wizard/frmKeywordsHowMany.h"
#include "wizard/frmLoad.h"
#include <QFontMetrics>
#include <QObject>
#include <algorithm>
#include <cmath>
#include <set>

namespace Hints
{
QRect PlaceOn(const Form &theForm)
{
    if (&theForm == &frmDirectory::Me)
        return {312, 246, 264, 64};
    if (&theForm == &frmKeywordsHowMany::Me)
        return {24, 146, 164, 130};
    return {};
}

static Text Stored(const Text &theNumber, const char *theEnd)
{
    return GATHERFROMFILE(InProgramDir(theNumber + "_store\\" + theNumber + theEnd));
}

static bool IsSame(const Text &theDir, const Text &theOther)
{
    return Paths::CompareIgnoringCase(Paths::Normalize(theDir), Paths::Normalize(theOther)) == 0;
}

bool IsOfProject(const Text &theDir)
{
    const std::size_t end = theDir.find_last_of('\\');
    if (end == Text::npos || !IsSame(theDir.substr(0, end), Paths::ProgramDir()))
        return false;
    return Files::IsProjectDirectory(LowerText(theDir.substr(end + 1)));
}

// A directory that is shipped with the program and is no site.
static bool IsShipped(const Text &theDir)
{
    const auto names = {"fonts", "icons", "imgs", "report", "share"};
    return std::any_of(
        names.begin(), names.end(), [&](const char *name) { return IsSame(theDir, InProgramDir(name)); });
}

QString NoteOn(const Text &theDir)
{
    if (IsSame(theDir, Paths::ProgramDir()))
        return QObject::tr("Ferncastle's own");
    if (IsSame(theDir, InProgramDir("sample")))
        return QObject::tr("a site to try");
    return {};
}

static QString OfPicker(const Form &theForm)
{
    const auto *picker = theForm.Find<DirList>("Dir1");
    const Text chosen = picker->List(picker->NowIndex);
    const Text stored = Stored(ProjectNumber, ".dir");
    const bool isAtStart = IsSame(chosen, Paths::ProgramDir());
    if (isAtStart && ifFileExists(InStoreDir(ProjectNumber + ".dir")) && !Files::IsDirectory(stored))
        return QObject::tr("%1 is not there. Choose the folder that holds your site, and check the domain name.")
            .arg(QFontMetrics(Theme::FontOf(TextStyle::Dim))
                     .elidedText(ToQString(stored), Qt::ElideMiddle, PlaceOn(theForm).width() - 20));
    if (isAtStart)
        return QObject::tr(
            "This is Ferncastle's own folder. Choose the folder that holds your site. To try Ferncastle, "
            "choose its folder \"sample\".");
    if (IsOfProject(chosen) || IsShipped(chosen))
        return QObject::tr("This is Ferncastle's own folder. Choose the folder that holds your site.");
    return {};
}

static std::vector<Keyword> KeywordsOfProject()
{
    const Text file = InStoreDir(ProjectNumber + ".key");
    return ifFileExists(file) ? KeywordsOf(Files::Read(file)) : std::vector<Keyword>{};
}

// How many keywords differ. Upper and lower case make no difference in a file name.
static int Different(const std::vector<Keyword> &theKeywords)
{
    std::set<Text> Result;
    for (const Keyword &one : theKeywords)
        Result.insert(LowerText(one.Word));
    return static_cast<int>(Result.size());
}

static QString OfNumber(const Form &theForm)
{
    const double wanted = NumberAtStart(theForm.Find<TextBox>("txtKeywordsPerFilename")->Now.Caption);
    // With Quillmark the words come from a dictionary instead.
    if (LoadVariable("UsingQuillmark", 1) == "True")
        return {};
    const std::vector<Keyword> keywords = KeywordsOfProject();
    const int different = Different(keywords);
    if (wanted > different)
        return QObject::tr("Your list has %1, which is too few for this number. Lower the number, or go back "
                           "and add keywords.")
            .arg(different == 1 ? QObject::tr("only 1 keyword")
                                : QObject::tr("only %1 different keywords").arg(different));
    // A longer search would take time, and nobody wants more keywords than that in a file name.
    const long needed = std::lround(std::ceil(std::min(wanted, 100.0)));
    const long sure = SureKeywords(keywords, needed);
    if (sure >= needed)
        return {};
    return QObject::tr("A keyword that is part of another does not count, so your list has only %1. Lower the "
                       "number, or go back and add keywords.")
        .arg(sure);
}

QString Of(const Form &theForm)
{
    if (!theForm.Visible)
        return {};
    return &theForm == &frmDirectory::Me ? OfPicker(theForm) : OfNumber(theForm);
}

QString TipOf(const ListBox &theList, int theRow)
{
    const auto row = static_cast<std::size_t>(theRow);
    Text words = theList.NowRows[row];
    const auto *numbers = theList.Owner.Find<ListBox>("lstProjNums");
    if (&theList.Owner == &frmLoad::Me && &theList != numbers && row < numbers->NowRows.size()) {
        const Text &number = numbers->NowRows[row];
        words += "\nProject " + number + "\nDomain: " + Stored(number, ".dom") + "\nFolder: " + Stored(number, ".dir");
    }
    return ToQString(words);
}
}  // namespace Hints
