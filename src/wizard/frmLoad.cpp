#include "wizard/frmLoad.h"
#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/RandomBas.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "toolkit/Pickers.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmDirectory.h"
#include "wizard/frmLoadCreate.h"

namespace frmLoad
{
void Form_Load(), lstProjNames_DblClick(), btnBack_Click(), btnRemove_Click(), Command2_Click(), btnNext_Click();

Form Me{"frmLoad", {.Load = Form_Load}};
Label Label1{Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "Load a Saved Project", .Style = TextStyle::Title}};
Label Label3{Me, "Label3", {.At = {24, 60, 270, 20}, .Caption = "Here are your available saved projects"}};
ListBox lstProjNames{Me, "lstProjNames",
    {.At = {24, 88, 552, 264}, .AccessibleName = "Your available saved projects", .DblClick = lstProjNames_DblClick}};
HelpTopic hlpList{Me, "hlpList", {302, 59}, "Project List",
    "This is a master list of all the projects you have created to date.  Click on the one you'd like to work with and "
    "press Next, or simply double-click it.  I'll fill in the screens that follow with what you saved.  Two projects "
    "may have the same name; each has a number and files of its own.  Please don't delete a project's folders by hand: "
    "the list ends where a number is missing."};
// In step with lstProjNames, row for row.
ListBox lstProjNums{Me, "lstProjNums", {.Visible = false}};
ListBox lstDomainNames{Me, "lstDomainNames", {.Visible = false}};
FileList File1{Me, "File1", {.Visible = false}};
Image btnBack{
    Me, "btnBack", {.At = {24, 372, 92, 34}, .AccessibleName = "Back", .As = Role::Back, .Click = btnBack_Click}};
Image btnRemove{Me, "btnRemove", {.At = {132, 373, 96, 32}, .AccessibleName = "Remove", .Click = btnRemove_Click}};
Image hlpRemove{Me, "hlpRemove", {.At = {236, 378, 22, 22}}};
Button Command2{Me, "Command2", {.At = {274, 373, 96, 32}, .Caption = "Command2", .Click = Command2_Click}};
Image btnNext{
    Me, "btnNext", {.At = {484, 372, 92, 34}, .AccessibleName = "Next", .As = Role::Next, .Click = btnNext_Click}};
HelpFrame Help{Me};
MenuBar Menu{Me, menuBeforeProject};

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_main01.jpg", 1, 1);
        Menu.mnuTools.Visible = false;
        File1.Pattern = "*.pro";
        File1.Path = Paths::ProgramDir();
        // Deliberate: nothing ever shows them again, so a project can't be removed.
        btnRemove.Visible = false;
        hlpRemove.Visible = false;
        Command2.Visible = false;
        LoadProjectList();
        lstProjNames.ListIndex = 0;
        // Last, since a missing picture ends the load here: it must not cost the user the list.
        hlpList.Picture = PictureOf("btnHelp.jpg");
    });
}

void LoadProjectList()
{
    Trap([] {
        std::int16_t counter = 1;
        Text number = PadNumberLeft(counter, 4);
        while (ifDirExists(InProgramDir(number + "_store"))) {
            ProjectName = getProjectName(number, 0);
            DomainName = getProjectName(number, 1);
            lstProjNames.AddItem(ProjectName);
            lstDomainNames.AddItem(DomainName);
            lstProjNums.AddItem(number);
            counter = Count16(counter + 1);
            number = PadNumberLeft(counter, 4);
        }
    });
}

Text getProjectName(const Text &theNumber, int which)
{
    Text Result;
    Trap([&] {
        const Text name = theNumber + (which < 1 ? ".name" : ".dom");
        const Text file = InProgramDir(theNumber + "_store\\" + name);
        // Deliberate: the message leaves out "_store", though that is where the file is looked for.
        const Text shownFile = InProgramDir(theNumber + "\\" + name);
        if (!ifFileExists(file)) {
            ShowMessageLines({"Error:", "The project storage file:", shownFile, "could not be found.", "",
                "getProjectName.frmLoad"});
            return;
        }
        const Text text = Files::Read(file);
        const std::int64_t end = FindText(1, text, "[]");
        if (end == 0) {
            // Deliberate: "delimeters" is spelled so.
            ShowMessageLines({"Error:",
                "A valid project name could not be found due to the lack of the proper delimeters [] "
                "being found in file:",
                shownFile, "", "getProjectName.frmLoad"});
            return;
        }
        Result = LeftPart(text, end - 1);
    });
    return Result;
}

void lstProjNames_DblClick()
{
    Trap([] {
        ProjectName = lstProjNames.List(lstProjNames.ListIndex);
        ProjectNumber = lstProjNums.List(lstProjNames.ListIndex);
        btnNext_Click();
    });
}

void btnNext_Click()
{
    Trap([] {
        const int row = lstProjNames.ListIndex;
        if (row >= 0) {
            ProjectName = lstProjNames.List(row);
            ProjectNumber = lstProjNums.List(row);
            DomainName = lstDomainNames.List(row);
        } else {
            // Deliberate: the complaint doesn't stop the move, which is made with the globals as they are.
            ShowHelpBox(Me, "Load Error",
                "Please select a project to load by clicking on it in the list or return to the main menu to "
                "create a new project.");
        }
        CloseHelpBoxIfOpen(Me);
        ProjectMode = "load";
        frmDirectory::Me.Show();
        Me.Unload();
    });
}

void btnBack_Click()
{
    Trap([] {
        CloseHelpBoxIfOpen(Me);
        frmLoadCreate::Me.Show();
        Me.Unload();
    });
}

// Its button is always hidden. Deletes the "*.pro" file of a project, never the project's directories.
void btnRemove_Click()
{
    Trap([] {
        const int row = lstProjNames.ListIndex;
        const Text file = File1.List(row);
        if (MsgBox(Text("Would you like to remove the following project: ") + CRLF + CRLF + lstProjNames.List(row) +
                       CRLF + file,
                msgYesNo) != answerYes)
            return;
        Files::Delete(InProgramDir(file));
        lstProjNames.Clear();
        File1.Path = Paths::ProgramDir();
        File1.Refresh();
        for (int i = 0; i < File1.ListCount(); ++i)
            lstProjNames.AddItem(GATHERFROMFILE(InProgramDir(File1.List(i))));
        LoadProjectList();
        lstProjNames.ListIndex = 0;
    });
}

// Its button is always hidden. Shows whether the three lists are in step.
void Command2_Click()
{
    Trap([] {
        const int row = lstProjNames.ListIndex;
        ShowMessageLines({"lstProjNames.listindex: " + std::to_string(row),
            "lstProjNums.listindex: " + std::to_string(lstProjNums.ListIndex)});
        ShowMessageLines({"lstProjNames.List(lstProjNames.listindex): " + lstProjNames.List(row),
            "lstProjNums.List(lstProjNames.listindex): " + lstProjNums.List(row)});
        // Deliberate: the second line shows the domain too.
        ShowMessageLines({"lstDomainNames.List(lstProjNames.listindex): " + lstDomainNames.List(row),
            "lstProjNums.List(lstProjNames.listindex): " + lstDomainNames.List(row)});
    });
}
}  // namespace frmLoad
