#include "wizard/frmFilters.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"

namespace frmFilters
{
void Form_Load(), btnAddFilter_Click(), btnRemoveFilter_Click(), btnClearList_Click(), btnResetList_Click(),
    btnDone_Click();
void Text1_KeyPress(int &KeyAscii);

Form Me{"frmFilters", {.Load = Form_Load}};
Label Label1{Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "Manage Your Filters", .Style = TextStyle::Title}};
Label lblDetails{Me, "lblDetails", {.At = {272, 60, 304, 300}}};
Label Label3{Me, "Label3", {.At = {24, 60, 228, 18}, .Caption = "Enter a filter below"}};
TextBox Text1{Me, "Text1", {.At = {24, 85, 76, 26}, .AccessibleName = "Filter", .KeyPress = Text1_KeyPress}};
Image btnAddFilter{
    Me, "btnAddFilter", {.At = {108, 82, 116, 32}, .AccessibleName = "Add Filter", .Click = btnAddFilter_Click}};
HelpTopic hlpAddFilter{Me, "hlpAddFilter", {230, 87}, "Add a Filter",
    "Clicking the Add Filter button will add the filter you have entered into the filters list.  Type the last three "
    "letters of the file extension without a dot, 'htm' or 'php' for example.  The button turns your letters into "
    "lower case for you; the Enter key adds them just as you typed them.  A filter that is longer or shorter than "
    "three letters will never match a file, so please check your typing."};
Label Label2{Me, "Label2", {.At = {24, 130, 92, 20}, .Caption = "Filter List", .Style = TextStyle::SubTitle}};
ListBox List1{Me, "List1", {.At = {24, 154, 92, 200}, .AccessibleName = "Filter List"}};
Image btnRemoveFilter{
    Me, "btnRemoveFilter", {.At = {128, 154, 96, 32}, .AccessibleName = "Remove", .Click = btnRemoveFilter_Click}};
HelpTopic hlpRemoveFilter{Me, "hlpRemoveFilter", {230, 159}, "Remove a Filter",
    "Clicking the Remove button will remove the selected filter from your list.  First click on the filter in the "
    "list, then on the button, and answer Yes when you are asked.  Files of that type will then be copied to your new "
    "site as they are instead of being expanded.  If you remove one by mistake, just add it again.  Nothing is saved "
    "until you click Done."};
Image btnClearList{
    Me, "btnClearList", {.At = {128, 196, 92, 32}, .AccessibleName = "Clear", .Click = btnClearList_Click}};
// Deliberate: the text promises too much: only the option on frmProcess has an effect.
HelpTopic hlpClearList{Me, "hlpClearList", {230, 201}, "Clear the List",
    "Clicking the Clear button will remove all the filters from your list.  Be careful with this one:  while filters "
    "are turned on and the list is empty, none of your pages will be expanded.  If you would rather do without "
    "filters, untick 'Use File Extension Filters' in the Options menu of any screen, and every file of your site will "
    "be processed when you expand it.  The Reset button brings the default filters back."};
Image btnResetList{
    Me, "btnResetList", {.At = {128, 238, 92, 32}, .AccessibleName = "Reset", .Click = btnResetList_Click}};
HelpTopic hlpResetList{Me, "hlpResetList", {230, 243}, "Reset Filter List",
    "Clicking the Reset button will reset the filter list to its default values.  These are 'htm' and 'tml', which let "
    "every .htm and .html page pass.  Any filters you have added yourself will be gone, so you are asked first (in the "
    "same words as for clearing the list).  If you ever feel unsure about your filters, this is the safe way back.  "
    "Click Done to save the result."};
Label Label4{Me, "Label4", {.At = {128, 292, 92, 18}, .Caption = "Filters"}};
Label lblFilterCount{Me, "lblFilterCount", {.At = {128, 312, 92, 22}, .Style = TextStyle::Counter}};
Image btnDone{
    Me, "btnDone", {.At = {484, 372, 92, 34}, .AccessibleName = "Done", .As = Role::Primary, .Click = btnDone_Click}};
HelpFrame Help{Me};
MenuBar Menu{Me, {.About = true, .ReportingErrors = true}};

static void ShowCount()
{
    lblFilterCount.Caption = std::to_string(List1.ListCount());
}

static void SetDefaultRows()
{
    List1.SetRows({"htm", "tml"});
    ShowCount();
}

static void AddFilter(const Text &theFilter)
{
    List1.AddItem(theFilter);
    Text1.Text = "";
    ShowCount();
}

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_main01.jpg", 0, 0);
        // Deliberate: "filtrered" is spelled so.
        lblDetails.Caption =
            "Filters let you specify which types of files you'd like to include in the expansion process.\r\n"
            "\r\n"
            "Currently, you can filter exactly the last three letters of any file extension.  What this means is that "
            "if you'd like to include all of your '.htm' files, you'd use the filter 'htm'.  'tml' will include "
            "'.html' files, '.xhtml' files, '.anythingtml' files, etc.\r\n"
            "\r\n"
            "In some cases you may also want to include '.txt' or similar files.  This is the place to include them."
            "\r\n\r\n"
            "NOTE:  Any file types not included in the filters list will be 'filtrered out' and not processed.  I "
            "strongly recommend leaving these settings as they are and keeping filters turned on.";
        Menu.mnuTools.Visible = false;
        if (!ifFileExists(InStoreDir("filters.lst")))
            SetDefaultRows();
        else
            lblFilterCount.Caption = std::to_string(LoadListFromFile("lst", ProjectNumber + "_store\\filters", List1));
        // The pictures come last, so that a missing one doesn't cost a run the filters that it reads here.
        btnAddFilter.Picture = PictureOf("btnAddFilter.jpg");
        btnRemoveFilter.Picture = PictureOf("btnRemove.jpg");
        btnClearList.Picture = PictureOf("btnClear.jpg");
        btnResetList.Picture = PictureOf("btnReset.jpg");
        btnDone.Picture = PictureOf("btnDone.jpg");
        hlpAddFilter.Picture = PictureOf("btnHelp.jpg");
        hlpRemoveFilter.Picture = PictureOf("btnHelp.jpg");
        hlpClearList.Picture = PictureOf("btnHelp.jpg");
        hlpResetList.Picture = PictureOf("btnHelp.jpg");
    });
}

void btnAddFilter_Click()
{
    Trap([] {
        if (Text1.Text == "")
            return;
        AddFilter(LowerText(Text1.Text));
    });
}

void Text1_KeyPress(int &KeyAscii)
{
    Trap([&] {
        if (KeyAscii != 13 || Text1.Text == "")
            return;
        // Deliberate: added as typed; only the button makes it lower case.
        AddFilter(Text1.Text);
    });
}

static const char *const clearQuestion = "Are you sure you want to clear the filters list?";

// Deliberate: the title is that of the Clear button, also for removing one filter.
static bool Confirmed(const Text &theQuestion)
{
    return MsgBox(theQuestion, msgYesNo + msgStop + msgThirdDefault, "Clear Filters List") == answerYes;
}

void btnRemoveFilter_Click()
{
    Trap([] {
        if (List1.ListIndex < 0) {
            // Deliberate: the text says keyword, though it means a filter.
            ShowHelpBox(Me, "Nothing Selected",
                "\r\nYou must select a keyword to be removed by clicking on the keyword in the keyword list");
            return;
        }
        if (Confirmed("Are you sure you want to remove the selected filter?")) {
            List1.RemoveItem(List1.ListIndex);
            ShowCount();
        }
    });
}

void btnClearList_Click()
{
    Trap([] {
        if (Confirmed(clearQuestion)) {
            List1.Clear();
            ShowCount();
        }
    });
}

void btnResetList_Click()
{
    Trap([] {
        // Deliberate: asks the same question as the Clear button.
        if (Confirmed(clearQuestion))
            SetDefaultRows();
    });
}

void btnDone_Click()
{
    Trap([] {
        SaveListToFile("lst", ProjectNumber + "_store\\filters", List1);
        // Deliberate: written although nothing reads it.
        SaveMarkedFile(InProgramDir("LastProjFilters.chk"), ProjectNumber, 1);
        Me.Unload();
    });
}
}  // namespace frmFilters
