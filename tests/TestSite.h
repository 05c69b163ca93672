// A temporary program directory with the shipped pictures, a site of its own on drive x:, and a front that notes what
// the program says.
#pragma once
#include "HostPlaces.h"
#include "core/AppVars.h"
#include "disk/DirectoryCache.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "disk/PendingWrites.h"
#include "toolkit/Gates.h"
#include "toolkit/QuietPresentation.h"
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <sstream>

// The numbers of the conditions that are not as expected.
inline Text Unlike(bool theValue, std::initializer_list<bool> theConditions)
{
    Text Result;
    for (const bool &condition : theConditions)
        if (condition != theValue)
            Result += std::to_string(&condition - theConditions.begin() + 1) + " ";
    return Result;
}
// Unlike "&&" and "||" in one expectation, they say which of the conditions fails.
#define EXPECT_ALL(...) EXPECT_EQ(Unlike(true, {__VA_ARGS__}), "") << #__VA_ARGS__
#define EXPECT_NONE(...) EXPECT_EQ(Unlike(false, {__VA_ARGS__}), "") << #__VA_ARGS__

// Runs a command of the system's shell and returns its exit status; 128 and the signal's number when a signal ended it.
// theWords are quoted, the rest is not.
inline int RunCommand(const Text &theStart, const std::vector<Text> &theWords, const Text &theRest)
{
    Text command = theStart;
    for (const Text &word : theWords)
        command += '"' + word + "\" ";
    command += theRest;
#ifdef _WIN32
    return std::system(('"' + command + '"').c_str());  // it drops the outermost quotes
#else
    const int status = std::system(command.c_str());
    return status % 128 != 0 ? 128 + status % 128 : status / 256;
#endif
}

struct TestFront final : QuietPresentation {
    std::vector<Text> Boxes;
    Text Asked;             // what the last standstill said
    int Answer = answerNo;  // to every question
    int Beeps = 0;
    int Yields = 0;
    Handler AtYield = nullptr;  // what a user does at each yield
    int Code = -1;              // once the program has ended
    std::vector<RuntimeFailure> Failures;

    int MsgBox(const Text &thePrompt, int theFlags, const Text &) override
    {
        Boxes.push_back(thePrompt);
        return theFlags & msgYesNo ? Answer : answerOK;
    }
    void DoEvents() override
    {
        ++Yields;
        if (AtYield)
            AtYield();
    }
    void Beep() override { ++Beeps; }
    void Standstill(const Text &theWhere, const Text &theWhy) override { Asked = theWhere + ": " + theWhy; }
    void Failure(const RuntimeFailure &theFailure) override { Failures.push_back(theFailure); }
    void Ended(int theCode) override { Code = theCode; }
    void WaitEvents() override { DoEvents(); }
};

class TestSite : public testing::Test
{
public:
    TestFront front;
    const std::filesystem::path program =
        std::filesystem::temp_directory_path() / ("ferncastle-" + std::to_string(std::random_device{}()));
    const std::filesystem::path site = program / "site on x";

    TestSite()
    {
        std::filesystem::create_directories(site);
        std::filesystem::copy(FERNCASTLE_DATA_DIR "/imgs", program / "imgs");
        // What a test writes beside the program is seen at once.
        DirectoryCache::SetRecheckInterval(0);
        Paths::SetProgramDir(HostForm(program));
        Paths::MapDrive('x', HostForm(site));
        SetPresentation(&front);
        HelpBoxOpen = ReportFinished = false;
        FormWidth = 600;
        FormHeight = 435;
    }
    ~TestSite() override
    {
        for (Form *form : Form::All())
            form->Unload();
        PendingWrites::Flush();
        SetPresentation(nullptr);
        std::filesystem::remove_all(program);
    }

    // The project in which a run on the site takes place.
    void StartProject() const
    {
        for (const char *directory : {"0001", "0001_store"})
            std::filesystem::create_directory(program / directory);
        ProjectNumber = "0001";
        DomainName = "site.test";
        LocalSiteDir = "x:\\";
    }
    // Files of the site, by their path below it.
    void Put(const Text &theFile, const Text &theContent = "<html>") const { PutAt(site / theFile, theContent); }
    static void PutAt(const std::filesystem::path &theFile, const Text &theContent)
    {
        std::filesystem::create_directories(theFile.parent_path());
        std::ofstream(theFile, std::ios::binary) << theContent;
    }
    // What the disk holds of a file below the program directory; "(none)" when it isn't there.
    Text OnDisk(const Text &theFile) const
    {
        std::ifstream file(program / theFile, std::ios::binary);
        std::ostringstream content;
        content << file.rdbuf();
        return file ? content.str() : "(none)";
    }
    template <class Kind> static Kind &The(Form &theForm, const Text &theName) { return *theForm.Find<Kind>(theName); }
    static bool Click(Form &theForm, const Text &theName) { return UserClick(The<Control>(theForm, theName)); }
};
