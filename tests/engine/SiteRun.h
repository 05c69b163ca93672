// A site of a few files and a run over it, without the wizard.
#pragma once
#include "TestSite.h"
#include "core/TextOps.h"
#include "core/frmLists.h"
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
        KeywordsPerFilename = 0;  // new names of six digits alone
    }
    // Puts the page in hand: theDir is the directory it lies in.
    static void TakePage(const Text &theDir, const Text &thePage = "")
    {
        frmProcess::Dir1.Path = theDir;
        frmProcess::File1.Path = theDir;
        frmLists::RichTextBox1.Text = thePage;
        frmLists::RichTextBox2.Text = LowerText(thePage);
    }
    // Runs the whole site, from the first tick to the report.
    void RunSite()
    {
        frmProcess::Me.Show();
        TimerTick(The<Timer>(frmProcess::Me, "Timer1"));
    }
    // A file of the new site with all new numbers made equal.
    Text NewPage(const Text &theFile) const
    {
        return std::regex_replace(OnDisk("0001/" + theFile), std::regex("[0-9]{6}(-[a-z]+)*"), "NEW");
    }
    // The files of a directory of the new site, new numbers made equal, one after the other.
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
