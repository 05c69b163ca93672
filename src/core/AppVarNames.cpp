#include "core/AppVarNames.h"
#include "core/AppVars.h"
#include <map>

// A macro, so that no name can be written beside another variable.
#define NAMED(theVar) std::pair<const Text, AppVar>(#theVar, &(theVar))

// In the order of AppVars.h.
static const std::map<Text, AppVar> theVars = {
    NAMED(DevMode),
    NAMED(AppTitle),
    NAMED(FormWidth),
    NAMED(FormHeight),
    NAMED(ExitConfirmNeeded),
    NAMED(DebugWhere),
    NAMED(ProjectMode),
    NAMED(ProjectNumber),
    NAMED(ProjectName),
    NAMED(LocalSiteDir),
    NAMED(DomainName),
    NAMED(KeywordTotal),
    NAMED(ShowWelcome),
    NAMED(UsingQuillmark),
    NAMED(KeywordsPerFilename),
    NAMED(CancelRequested),
    NAMED(PauseAbortFlag),
    NAMED(ReportFinished),
    NAMED(TreatThisFile),
    NAMED(CurrentFilePath),
    NAMED(FilesProcessedCnt),
    NAMED(LinksInternalCnt),
    NAMED(BrokenLinksTally),
    NAMED(KeywordsInFileName),
    NAMED(FileNameNumber),
    NAMED(LinkSubDir),
    NAMED(OldPageChunk),
    NAMED(NewPageChunk),
    NAMED(HelpBoxOpen),
    NAMED(HelpBoxClosed),
    NAMED(PagesFailedCnt),
    NAMED(RunSpareCnt),
    NAMED(InitSpareValue),
};

std::optional<AppVar> FindAppVar(const Text &theName)
{
    const auto found = theVars.find(theName);
    return found == theVars.end() ? std::nullopt : std::optional<AppVar>(found->second);
}

std::size_t AppVarCount()
{
    return theVars.size();
}
