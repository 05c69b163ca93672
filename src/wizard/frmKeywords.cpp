#include "wizard/frmKeywords.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "disk/Files.h"
#include "toolkit/Pickers.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmDirectory.h"
#include "wizard/frmKeywordsHowMany.h"
#include <algorithm>

namespace frmKeywords
{
void Form_Load(), Label2_Click(), btn_AddKeyword_Click(), btnLoadKeywords_Click(), btnKeywordRemove_Click(),
    btnKeywordClear_Click(), btnBack_Click(), btnNext_Click();
void Text1_KeyPress(int &KeyAscii);

// The heading of the help box while it is closed.
static const char *const restingHeading = "Keyword Entry";

Form Me{"frmKeywords", {.Load = Form_Load}};
Label lblTitle{Me, "lblTitle", {.At = {24, 12, 380, 24}, .Caption = "Keywords", .Style = TextStyle::Title}};
Label Label3{Me, "Label3",
    {.At = {24, 58, 516, 18}, .Caption = "Here are your keywords that will be used in the expansion process"}};
HelpTopic hlpTitle{Me, "hlpTitle", {554, 56}, "Keyword Entry",
    "This step is crucial.  The keywords you enter here become part of the file names of your new pages and of the "
    "links that lead to them.  Think of the words people type into a search engine when they look for what your site "
    "offers, and enter those.  Phrases of two or three words do very well.  Enter more different keywords than you "
    "want in each file name, and none that is part of another: with too few of them the expansion can't finish."};
Label Label2{Me, "Label2",
    {.At = {24, 84, 276, 90},
        .Caption = "Enter keyword phrases that are most relevant to your site's content and purpose.  After "
                   "typing a keyword or phrase, press the Enter key or click the \"Add Keyword\" button to add "
                   "it to your list.",
        .Click = Label2_Click}};
Label Label4{Me, "Label4", {.At = {24, 178, 276, 18}, .Caption = "Keyword"}};
TextBox Text1{Me, "Text1", {.At = {24, 198, 276, 26}, .AccessibleName = "Keyword", .KeyPress = Text1_KeyPress}};
Label Label5{
    Me, "Label5", {.At = {24, 230, 276, 18}, .Caption = "Example: Florida Refinance Loan", .Style = TextStyle::Dim}};
Image btn_AddKeyword{
    Me, "btn_AddKeyword", {.At = {24, 254, 138, 32}, .AccessibleName = "Add Keyword", .Click = btn_AddKeyword_Click}};
HelpTopic btn_hlpAddKeyword{Me, "btn_hlpAddKeyword", {170, 259}, "Add a Keyword",
    "Type a keyword into the blank, and click the 'Add Keyword' button or press the Enter key to add it to your Master "
    "Keyword List.  A keyword may be a single word or a whole phrase.  Blanks are fine, but the character + is not "
    "allowed.  A keyword that you enter twice is drawn more often, but it doesn't count as another one: no keyword is "
    "used twice in one file name."};
Label Label9{Me, "Label9", {.At = {24, 300, 286, 18}, .Caption = "Load keywords from text file (one per line)"}};
Image btnLoadKeywords{
    Me, "btnLoadKeywords", {.At = {24, 322, 92, 32}, .AccessibleName = "Load", .Click = btnLoadKeywords_Click}};
HelpTopic hlpLoadKeywordFile{Me, "hlpLoadKeywordFile", {124, 327}, "Load Keywords from a File",
    "You may already have or wish to create a text file with a list of keywords for your site.  Put one keyword or "
    "phrase on each line and save the file as plain text with Windows line ends.  Then click the 'Load' button and "
    "pick your file.  Its keywords are added to those already in your list.  You can load as many files as you like, "
    "one after the other."};
Label Label6{Me, "Label6", {.At = {324, 84, 252, 20}, .Caption = "Master Keyword List", .Style = TextStyle::SubTitle}};
ListBox lstKeywords{Me, "lstKeywords", {.At = {324, 108, 252, 140}, .AccessibleName = "Master Keyword List"}};
Label Label7{Me, "Label7", {.At = {324, 256, 112, 20}, .Caption = "Total Keywords: "}};
Label KeywordCount{Me, "KeywordCount", {.At = {428, 256, 100, 20}, .Style = TextStyle::Counter}};
Label Label8{Me, "Label8",
    {.At = {324, 282, 252, 36}, .Caption = "To remove a keyword, click on the keyword and press the remove button."}};
Image btnKeywordRemove{
    Me, "btnKeywordRemove", {.At = {324, 322, 96, 32}, .AccessibleName = "Remove", .Click = btnKeywordRemove_Click}};
HelpTopic hlpKeywordRemove{Me, "hlpKeywordRemove", {424, 327}, "Keyword Removal",
    "In the Master Keyword List, select a keyword to be removed by clicking on it, then click the 'Remove' button.  "
    "You will be asked whether you are sure.  Only the list on this screen changes at first; your project is saved as "
    "soon as you click Back or Next.  If you remove a keyword by mistake, just type it in again."};
Image btnKeywordClear{
    Me, "btnKeywordClear", {.At = {458, 322, 92, 32}, .AccessibleName = "Clear All", .Click = btnKeywordClear_Click}};
HelpTopic hlpClearAllKeywords{Me, "hlpClearAllKeywords", {554, 327}, "Clear All Keywords",
    "Click the 'Clear All' button if you wish to remove all keywords from your Master Keyword List and start over.  "
    "You will be asked first.  A keyword file you have loaded from your computer is not touched by this, so you can "
    "load it again at any time.  Remember to enter some keywords before you go on to the next step."};
ListBox List2{Me, "List2", {.Visible = false}};
TextBox Text2{Me, "Text2", {.Caption = "C:\\", .Visible = false}};
FileDialog CDOPEN{Me, "CDOPEN"};
Image btnBack{
    Me, "btnBack", {.At = {24, 372, 92, 34}, .AccessibleName = "Back", .As = Role::Back, .Click = btnBack_Click}};
Image btnNext{
    Me, "btnNext", {.At = {484, 372, 92, 34}, .AccessibleName = "Next", .As = Role::Next, .Click = btnNext_Click}};
HelpFrame Help{Me, restingHeading};
MenuBar Menu{Me, fullMenu};

// Above 0 only while btnLoadKeywords_Click runs.
static int LoadFlag = 0;

static constexpr std::int64_t longestKeyword = 100000;
static constexpr int mostKeywords = 100000;

static void ShowCount()
{
    KeywordCount.Caption = std::to_string(lstKeywords.ListCount());
}

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_main01.jpg", 1, 1);
        btn_AddKeyword.Picture = PictureOf("btnAddKeyword.jpg");
        btnLoadKeywords.Picture = PictureOf("btnLoad.jpg");
        btnKeywordClear.Picture = PictureOf("btnClear.jpg");
        btnKeywordRemove.Picture = PictureOf("btnRemove.jpg");
        hlpTitle.Picture = PictureOf("btnHelp.jpg");
        btn_hlpAddKeyword.Picture = PictureOf("btnHelp.jpg");
        hlpLoadKeywordFile.Picture = PictureOf("btnHelp.jpg");
        hlpKeywordRemove.Picture = PictureOf("btnHelp.jpg");
        hlpClearAllKeywords.Picture = PictureOf("btnHelp.jpg");
        if (ifFileExists(InStoreDir(ProjectNumber + ".key")))
            LoadThoseKeywords(lstKeywords, ProjectNumber);
        KeywordTotal = lstKeywords.ListCount();
        ShowCount();
        Me.Show();
        Text1.SetFocus();
    });
}

std::int16_t LoadThoseKeywords(ListBox &theList, Text theKeyFile)
{
    std::int16_t Result = 0;
    Trap([&] {
        Text file = theKeyFile;
        if (LoadFlag <= 0) {
            const Text number = theKeyFile.empty() ? ProjectNumber : theKeyFile;
            file = InProgramDir(number + "_store\\" + number + ".key");
        }
        if (!ifFileExists(file)) {
            // Deliberate: a path of three characters only opens the help box; the result is that of a success.
            if (Len(file) == 3)
                ShowHelpBox(Me, "Invalid Filename",
                    file + " is an invalid file name:  Please provide the direct location to the file containing "
                           "your keywords.  \r\n"
                           "\r\n"
                           "For Example: \r\n"
                           "C:\\My Documents\\SEO\\MyKeywords.txt");
            else
                Result = 2;
            return;
        }
        // Deliberate: the rules for keywords apply only to typing; the lines of a file are taken as they are, even
        // empty.
        const Text text = Files::Read(file);
        std::size_t from = 0;
        for (int i = 0; i < mostKeywords; ++i) {
            const std::size_t end = text.find('\r', from);
            if (end == Text::npos) {
                // Deliberate: a last line of one character is dropped.
                if (text.size() - from > 1) {
                    theList.AddItem(text.substr(from));
                    ++KeywordTotal;
                }
                break;
            }
            theList.AddItem(text.substr(from, end - from));
            ++KeywordTotal;
            // Deliberate: skips two characters after each line, even if the second one belongs to the next keyword.
            from = std::min(end + 2, text.size());
        }
    });
    return Result;
}

static void AddKeyword()
{
    lstKeywords.AddItem(Text1.Text);
    Text1.Text = "";
    ShowCount();
}

static const char *const goodKeywords = "Please enter keywords in the following format:\r\n"
                                        "\r\n"
                                        "Online Mortgage\r\n"
                                        "Mortgage\r\n"
                                        "Low Interest Loan\r\n"
                                        "\r\n"
                                        "\r\n"
                                        "Please do not enter keywords in this format: \r\n"
                                        "\r\n"
                                        "Online+Mortgage\r\n";

void btn_AddKeyword_Click()
{
    Trap([] {
        if (Text1.Text == "")
            return;
        if (Contains(Text1.Text, "+")) {
            MsgBox(Text(goodKeywords) + "\r\nThe character + is not allowed.");
            return;
        }
        AddKeyword();
    });
}

void Label2_Click()
{
    Trap([] { btn_AddKeyword_Click(); });
}

// Only beeps while the box already shows this topic: showing it again would close the box.
static void RefusePlus()
{
    if (HelpBoxClosed || Help.textHBHeading.Caption != "Invalid Character")
        ShowHelpBox(Me, "Invalid Character",
            Text("The character + is not allowed.\r\n\r\n") + goodKeywords + "Mortgage\r\nLow+Interest+Loan");
    Beep();
}

void Text1_KeyPress(int &KeyAscii)
{
    Trap([&] {
        // Deliberate: the character itself stays in the text box.
        if (KeyAscii == '+')
            RefusePlus();
        if (KeyAscii != 13 || Text1.Text == "")
            return;
        if (Contains(Text1.Text, "+"))
            RefusePlus();
        else
            AddKeyword();
    });
}

void btnKeywordRemove_Click()
{
    Trap([] {
        if (lstKeywords.ListIndex < 0)
            return;
        if (MsgBox("Remove the following Keyword: \r\n\r\n" + lstKeywords.List(lstKeywords.ListIndex), msgYesNo,
                "Remove Keyword") == answerYes)
            lstKeywords.RemoveItem(lstKeywords.ListIndex);
        ShowCount();
    });
}

void btnKeywordClear_Click()
{
    Trap([] {
        if (MsgBox("Are you sure you want to clear all keywords?", msgYesNo, "Confirm Clear Keywords") == answerYes)
            lstKeywords.Clear();
        ShowCount();
    });
}

void btnLoadKeywords_Click()
{
    Trap([] {
        LoadFlag = 1;
        CDOPEN.Filter = "Text Files (*.txt)|*.txt|(*.*)|*.*|";
        CDOPEN.ShowOpen();
        // Deliberate: a cancelled dialog leaves no name, and gets the same message as a missing file.
        Text2.Text = CDOPEN.FileName;
        if (LoadThoseKeywords(lstKeywords, Text2.Text) == 2)
            ShowMessageLines({"The file:  " + Text2.Text, " is non-existent or an invalid file type", "",
                "btnLoadKeywords.frmKeywords"});
    });
    // Outside the trap: after a failure, too, LoadThoseKeywords takes project numbers again.
    ShowCount();
    LoadFlag = 0;
}

// Sorts the list by length, equal lengths in their former order, and writes the key file. Has no trap: if the file
// can't be written, the calling handler ends and the screen stays.
static void SortAndSave()
{
    std::vector<Text> staying, sorted;
    for (const Text &row : lstKeywords.Rows())
        (row.empty() || Len(row) > longestKeyword ? staying : sorted).push_back(row);
    std::stable_sort(sorted.begin(), sorted.end(), [](const Text &a, const Text &b) { return a.size() < b.size(); });
    Text text;
    for (std::size_t i = 0; i < sorted.size(); ++i)
        text += (i == 0 ? "" : CRLF) + sorted[i];
    List2.SetRows(sorted);
    // Deliberate: an empty or overlong row stays in the list, ahead of the others, but is neither counted nor written.
    staying.insert(staying.end(), sorted.begin(), sorted.end());
    lstKeywords.SetRows(std::move(staying));
    KeywordTotal = List2.ListCount();
    KeywordCount.Caption = std::to_string(KeywordTotal);
    PrintToFile(InStoreDir(ProjectNumber + ".key"), text);
}

void btnBack_Click()
{
    Trap([] {
        SortAndSave();
        CloseHelpBoxIfOpen(Me, restingHeading);
        frmDirectory::Me.Show();
        Me.Unload();
    });
}

void btnNext_Click()
{
    Trap([] {
        if (lstKeywords.ListCount() == 0) {
            MsgBox("You have not entered any keywords for your website.  In order to optimize your site you must "
                   "provide keywords that target your page.",
                msgStop, AppTitle);
            return;
        }
        SortAndSave();
        CloseHelpBoxIfOpen(Me, restingHeading);
        frmKeywordsHowMany::Me.Show();
        Me.Unload();
    });
}
}  // namespace frmKeywords
