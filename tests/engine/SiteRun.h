// Sites of a few files, and runs over them without the wizard.
#pragma once
#include "TestSite.h"
#include "core/TextOps.h"
#include "core/frmLists.h"
#include "disk/PendingWrites.h"
#include "engine/frmProcess.h"
#include <regex>

struct SiteRun : TestSite {
    SiteRun()
    {
        StartProject();
        PutAt(program / "0001_store" / "0001.key", "moss\r\nfern\r\n");
        frmLists::ListDomainExtensions.SetRows({".example"});
        frmLists::ListLinkTrash.SetRows({"mailto:"});
        frmLists::ListIndexes.SetRows({"index.htm"});
        frmLists::lstMediaExtensions.SetRows({"jpg", "gif"});
        frmLists::lstMediaFilesCnt.SetRows({"0", "0"});
        frmLists::lstMediaLinksCnt.SetRows({"0", "0"});
        KeywordsPerFilename = 0;  // new names contain only six digits
    }
    // Makes thePage the current page, as if it were in the directory theDir.
    static void TakePage(const Text &theDir, const Text &thePage = "")
    {
        frmProcess::Dir1.Path = theDir;
        frmProcess::File1.Path = theDir;
        frmLists::RichTextBox1.Text = thePage;
        frmLists::RichTextBox2.Text = LowerText(thePage);
    }
    // Runs the whole expansion, from the first tick to the report.
    void RunSite()
    {
        frmProcess::Me.Show();
        TimerTick(The<Timer>(frmProcess::Me, "Timer1"));
    }
    // The content of a file of the new site, with "NEW" in place of every new number and its keywords.
    Text NewPage(const Text &theFile) const
    {
        return std::regex_replace(OnDisk("0001/" + theFile), std::regex("[0-9]{6}(-[a-z]+)*"), "NEW");
    }
    // The names of the files in a directory of the new site, sorted, with "NEW" in place of every new number.
    Text NewFiles(const Text &theDir) const
    {
        PendingWrites::Flush();
        std::vector<Text> names;
        for (const auto &file : std::filesystem::directory_iterator(program / "0001" / theDir))
            if (file.is_regular_file())
                names.push_back(std::regex_replace(file.path().filename().string(), std::regex("^[0-9]{6}"), "NEW"));
        std::sort(names.begin(), names.end());
        Text Result;
        for (const Text &name : names)
            Result += (Result.empty() ? "" : " ") + name;
        return Result;
    }
};

// A site with directories, for the rules about links.
struct LinkSite : SiteRun {
    LinkSite()
    {
        for (const char *file : {"web/index.htm", "web/page.htm", "web/a/index.htm", "web/a/page.htm", "web/a/b/x.htm"})
            Put(file);
        LocalSiteDir = "x:\\web\\";
    }
};
