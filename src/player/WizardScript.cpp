#include "player/WizardScript.h"
#include "core/TextOps.h"
#include "disk/Paths.h"
#include <sstream>

namespace
{
class ScriptText
{
public:
    // A line of words that every script can hold.
    void Add(const Text &theLine) { script += theLine + '\n'; }
    // A line with a value of the user behind its first words; comments and blanks in a script may not change it.
    void Add(const Text &theWords, const Text &theValue, const Text &theOption)
    {
        std::istringstream line(theWords + ' ' + theValue);
        const std::vector<Action> read = ReadScript(line);
        const bool isWhole = read.size() == 1 && read[0].Verb + ' ' + read[0].All() == theWords + ' ' + theValue;
        if (!isWhole || theValue.find_first_of("\r\n") != Text::npos)
            throw OptionError{
                theOption + ": a script can't hold this value, for its blanks, its line break or its #: " + theValue};
        Add(theWords + ' ' + theValue);
    }
    const Text &Script() const { return script; }

private:
    Text script;
};
}  // namespace

static void AddNewProject(ScriptText &theScript, const RunOptions &theOptions)
{
    theScript.Add("click frmLoadCreate.btnCreate");
    theScript.Add("type frmCreate.txtProjName", theOptions.Name, "--name");
    theScript.Add("type frmCreate.txtDomainName", theOptions.Domain, "--domain");
    theScript.Add("click frmCreate.btnNext");
}

static void AddSavedProject(ScriptText &theScript, const RunOptions &theOptions)
{
    // Not the picture: it looks for the directory of the new site, which may have been moved away.
    theScript.Add("click frmLoadCreate.lblLoad1");
    theScript.Add("select frmLoad.lstProjNames " + NumberText(NumberAtStart(theOptions.Project) - 1));
    theScript.Add("click frmLoad.btnNext");
}

Text WizardScript(const RunOptions &theOptions)
{
    ScriptText script;
    script.Add("# A way through the wizard, from its start to the report.");
    // The setting decides which screen comes first.
    script.Add("given ShowWelcome False");
    script.Add("wait frmMenu");
    script.Add("click frmMenu.btnFerncastle");
    if (theOptions.Project.empty())
        AddNewProject(script, theOptions);
    else
        AddSavedProject(script, theOptions);

    script.Add("go frmDirectory.Dir1", Paths::FromHost(theOptions.Site), "--site");
    if (theOptions.HasStore) {
        // When the saved directory is gone, the screen shows another domain than the project's.
        script.Add("key frmDirectory.txtDomainName Clear");
        script.Add("type frmDirectory.txtDomainName", theOptions.Domain, "--domain");
    }
    script.Add("click frmDirectory.btnNext");

    if (!theOptions.Keywords.empty()) {
        if (theOptions.HasStore) {
            script.Add("answer Yes");
            script.Add("click frmKeywords.btnKeywordClear");
        }
        script.Add("textfile", Paths::FromHost(theOptions.Keywords), "--keywords");
        script.Add("click frmKeywords.btnLoadKeywords");
    }
    script.Add("click frmKeywords.btnNext");
    script.Add("key frmKeywordsHowMany.txtKeywordsPerFilename Clear");
    script.Add("type frmKeywordsHowMany.txtKeywordsPerFilename " + std::to_string(theOptions.PerName));
    script.Add("click frmKeywordsHowMany.btnNext");
    if (theOptions.UsesQuillmark != theOptions.HadQuillmark)
        script.Add("click frmQuillmark.chkUsingQuillmark");
    script.Add("click frmQuillmark.btnNext");

    script.Add("print frmConfirm.lblNewSiteDir");
    script.Add("click frmConfirm.btnExpand");
    script.Add("click frmDoItAlready.btnDoItAlready");
    if (theOptions.HasNoFilters)
        // Before the run has begun: its timer ticks after this line.
        script.Add("click frmProcess.optUseFilters");
    script.Add("wait frmReport");
    script.Add("read frmReport.FinalReportBrowser");
    return script.Script();
}
