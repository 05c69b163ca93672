#include "core/AppVars.h"
#include "core/TextOps.h"
#include "player/Script.h"
#include <map>
#include <variant>

using AnyVar = std::variant<Text *, bool *, long *, double *>;

static const std::map<Text, AnyVar> theVars{
    {"AppTitle", &AppTitle},
    {"BrokenLinksTally", &BrokenLinksTally},
    {"CancelRequested", &CancelRequested},
    {"CurrentFilePath", &CurrentFilePath},
    {"DebugWhere", &DebugWhere},
    {"DevMode", &DevMode},
    {"DomainName", &DomainName},
    {"ExitConfirmNeeded", &ExitConfirmNeeded},
    {"FileNameNumber", &FileNameNumber},
    {"FilesProcessedCnt", &FilesProcessedCnt},
    {"FormHeight", &FormHeight},
    {"FormWidth", &FormWidth},
    {"HelpBoxClosed", &HelpBoxClosed},
    {"HelpBoxOpen", &HelpBoxOpen},
    {"InitSpareValue", &InitSpareValue},
    {"KeywordTotal", &KeywordTotal},
    {"KeywordsInFileName", &KeywordsInFileName},
    {"KeywordsPerFilename", &KeywordsPerFilename},
    {"LinkSubDir", &LinkSubDir},
    {"LinksInternalCnt", &LinksInternalCnt},
    {"LocalSiteDir", &LocalSiteDir},
    {"NewPageChunk", &NewPageChunk},
    {"OldPageChunk", &OldPageChunk},
    {"PagesFailedCnt", &PagesFailedCnt},
    {"PauseAbortFlag", &PauseAbortFlag},
    {"ProjectMode", &ProjectMode},
    {"ProjectName", &ProjectName},
    {"ProjectNumber", &ProjectNumber},
    {"ReportFinished", &ReportFinished},
    {"RunSpareCnt", &RunSpareCnt},
    {"ShowWelcome", &ShowWelcome},
    {"TreatThisFile", &TreatThisFile},
    {"UsingQuillmark", &UsingQuillmark},
};

bool SetAppVar(const Text &theName, const Text &theValue)
{
    const auto found = theVars.find(theName);
    if (found == theVars.end())
        return false;
    if (const auto *text = std::get_if<Text *>(&found->second))
        **text = theValue;
    else if (const auto *flag = std::get_if<bool *>(&found->second))
        **flag = NumberAtStart(theValue) != 0 || EqualsIgnoringCase(theValue, "True");
    else if (const auto *count = std::get_if<long *>(&found->second))
        **count = static_cast<long>(NumberAtStart(theValue));
    else
        *std::get<double *>(found->second) = NumberAtStart(theValue);
    return true;
}
