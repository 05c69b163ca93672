#include "player/Explain.h"
#include "core/AppVars.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/frmLists.h"
#include "disk/Files.h"
#include "disk/Losses.h"
#include "disk/Paths.h"
#include "engine/do_the_file.h"
#include "engine/frmProcess.h"
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unordered_map>

Text NameTooLong()
{
    return std::strerror(ENAMETOOLONG);
}

// The page that the run treats, as a path of the host; empty when there is none.
static Text CurrentPage()
{
    return frmProcess::Me.Loaded ? Files::ToHost(frmProcess::lblCurrentFile.Now.Caption) : Text();
}

static Finding AtLink(const Text &theWhat)
{
    return {true, CurrentPage(), LineAt(frmLists::RichTextBox2.Text, LinkInHand), theWhat};
}

Finding ExplainFailure(const RuntimeFailure &theFailure)
{
    if (LinkInHand > 0) {
        const Text &page = frmLists::RichTextBox2.Text;
        if (FindLastText(page, "<", LinkInHand, false) == 0)
            return AtLink("a link ahead of the first tag");
        if (FindText(LinkInHand, page, ">") == 0)
            return AtLink("the tag of this link has no end");
        return AtLink(theFailure.What == "negative count" ? "two good links in one tag" : theFailure.What);
    }
    if (theFailure.Where == "Count16")
        return {true, Files::ToHost(frmProcess::Dir1.NowPath), 0,
            "this directory holds more than 32,767 files or directories"};
    const Text &path = theFailure.Where;
    const Text file = path.starts_with('/') ? path : Files::ToHost(path);
    if (file.empty())
        return {true, CurrentPage(), 0, theFailure.What};
    if (Files::IsDirectory(path))
        return {true, file, 0, theFailure.What};
    const bool isOurs = Paths::IsInside(Paths::FromHost(file), Paths::ProgramDir());
    return {
        true, file, 0, Text(isOurs ? "this file can't be written: " : "this file can't be read: ") + theFailure.What};
}

Finding ExplainStandstill(const Text &theWhere, const Text &theWhy)
{
    if (theWhere == "GetLinkAtPos")
        return AtLink("the value of this link has no end");
    if (theWhere == "CreateNewlyKeywordedFile")
        return AtLink("no free name is found for a new page; whether this happens depends on the seed");
    return AtLink(theWhy);
}

Text ExplainMissingReport(const Text &theLastBox)
{
    // What failed in the store comes first: other failures, such as a page that can't be read, end no run.
    const std::vector<Losses::Loss> &losses = Losses::All();
    const auto last = std::find_if(losses.rbegin(), losses.rend(),
        [](const Losses::Loss &one) { return Paths::IsInside(one.File, InStoreDir("")); });
    if (last != losses.rend())
        return Files::ToHost(last->File) + ": " + last->Reason;
    if (!theLastBox.empty())
        return OnOneLine(theLastBox);
    if (!losses.empty())
        return Files::ToHost(losses.back().File) + ": " + losses.back().Reason;
    return frmProcess::Me.Loaded ? "the run did not come to its end" : "the wizard did not come to its last screen";
}

std::optional<FailedCopy> ReadFailedCopy(const Text &theBox)
{
    static const Text head = Text("Unable to copy file:") + CRLF, middle = Text(CRLF) + "to file:" + CRLF;
    const std::size_t cut = theBox.find(middle), target = cut + middle.size();
    if (!theBox.starts_with(head) || cut == Text::npos)
        return {};
    FailedCopy Result{
        theBox.substr(head.size(), cut - head.size()), theBox.substr(target, theBox.find('\r', target) - target), {}};
    // There may be as many losses as messages, and each is asked for: they are looked at once.
    static std::unordered_map<Text, Text> reasons;
    static std::size_t looked = 0;
    for (const std::vector<Losses::Loss> &losses = Losses::All(); looked < losses.size(); ++looked)
        reasons.insert_or_assign(losses[looked].File, losses[looked].Reason);
    for (const Text &file : {Result.Source, Result.Target})
        if (const auto found = reasons.find(file); found != reasons.end())
            Result.Reason = found->second;
    return Result;
}

Text OnOneLine(const Text &theText)
{
    Text Result;
    for (const char c : theText)
        if (c != '\r')
            Result += c == '\n' ? (Result.empty() || Result.back() == ' ' ? "" : " ") : Text(1, c);
    Result.erase(Result.find_last_not_of(' ') + 1);
    return Result;
}
