// Screens and controls, the gates, and what passes through them.
#include "TestSite.h"
#include "core/Trap.h"
#include <iostream>

namespace
{
std::vector<Text> told;      // the procedures that were called, in turn
Handler atLoad, job, other;  // what those of the load and of the two buttons do then
bool refusesClose = false;

void Tell(const char *theWord, Handler theAction = nullptr)
{
    told.emplace_back(theWord);
    if (theAction)
        theAction();
}
void KeyPress(int &KeyAscii)
{
    KeyAscii = KeyAscii == 'x' ? 0 : KeyAscii == 'y' ? 'z' : KeyAscii;
    if (KeyAscii == 'q')
        Tell("quit", job);
}

Form Me{"frmTried", {.Width = 600, .Load = [] { Tell("load", atLoad); }}};
Form Next{"frmTriedNext", {.QueryUnload = [](bool &Cancel) { Cancel = refusesClose; }}};
Label lblTried{Me, "lblTried", {.Caption = "Design"}};
TextBox txtTried{Me, "txtTried", {.Change = [] { Tell("text"); }, .KeyPress = KeyPress}};
CheckBox chkTried{Me, "chkTried", {.Click = [] { Tell("tick"); }}};
ListBox lstTried{Me, "lstTried", {.Click = [] { Tell("row"); }, .DblClick = [] { Tell("double"); }}};
Image btnJob{Me, "btnJob", {.Click = [] { Tell("job", job); }}};
Image btnOther{Me, "btnOther", {.Click = [] { Tell("other", other); }}};
MenuItem mnuTried{Me, "mnuTried", {}}, optTried{Me, "optTried", mnuTried, {}};
Timer tmrTried{Me, "tmrTried", {.Interval = 5, .Enabled = false, .Tick = [] { Tell("timer", job); }}};
DirList Dir1{Me, "Dir1", {.Change = [] { Tell("directory"); }}};
DriveList Drive1{Me, "Drive1", {.Change = [] { Tell("drive"); }}};
FileList File1{Me, "File1", {}};

struct Screens : TestSite {
    Screens() { told.clear(), atLoad = job = other = nullptr; }
    static Text Told()
    {
        Text Result;
        for (const Text &word : std::exchange(told, {}))
            Result.append(word).append(" ");
        return Result;
    }
    // Plays a life of the program in a process of its own. At the first yield the user clicks btnOther.
    void Lives(Handler theLife, int theCode, const Text &theTold)
    {
        front.AtYield = [] {
            static_cast<TestFront &>(ThePresentation()).AtYield = nullptr;
            UserClick(btnOther);
            Tell(UserClick(btnOther) ? "again" : "served");
        };
        const auto whole = [&] {
            StartProgram(Me);
            Told();
            theLife();
            std::cerr << Told() << front.Failures.size();
            std::_Exit(front.Code & 255);
        };
        EXPECT_EXIT(whole(), testing::ExitedWithCode(theCode), "^" + theTold + "$");
    }
};
}  // namespace

TEST_F(Screens, ComeIntoBeingWhenTouchedAndForgetWhenClosed)
{
    atLoad = [] { txtTried.Text = "from load"; };
    EXPECT_EQ(lblTried.Now.Caption, "Design");
    EXPECT_FALSE(Me.Loaded) << "a look at Now touches nothing";
    EXPECT_EQ(txtTried.Text, "from load");
    Me.Show();
    EXPECT_EQ(Told(), "load ") << "once, whatever touched it first";
    Me.Width = 640;
    lblTried.Caption = "Now";
    lblTried.Visible = btnJob.Enabled = false;
    Me.CloseRefused = chkTried.Value = tmrTried.Enabled = true;
    lstTried.AddItem("row");
    lstTried.ListIndex = 0;
    Dir1.Path = File1.Path = "x:\\";
    Me.Unload();
    EXPECT_NONE(Me.Loaded, Me.Visible, Me.CloseRefused, chkTried.Now.Ticked, tmrTried.Now.Enabled);
    EXPECT_ALL(Me.Now.Width == 600, lblTried.Now.Visible, btnJob.Now.Enabled, lstTried.NowRows.empty());
    EXPECT_EQ(lblTried.Now.Caption + txtTried.Now.Caption + Dir1.NowPath, "Design");
    atLoad = [] { Me.Show(); };
    EXPECT_ALL(File1.ListCount() == 0, Me.Visible);
    Me.Unload();
    atLoad = [] { Me.Unload(); };
    Me.Show();
    EXPECT_NONE(Me.Loaded, Me.Visible) << "a load may close its own screen";
}

TEST_F(Screens, AssigningRaisesWhatTheTableSays)
{
    Put("a/one.txt");
    const std::vector<std::pair<Handler, Text>> rows = {{[] { Me.Show(); }, "load "},
        {[] { Dir1.Path = "x:\\a"; }, "directory "}, {[] { Dir1.Path = "x:\\a\\"; }, ""},
        {[] { Dir1.Path = "x:\\"; }, "directory "}, {[] { Drive1.Drive = "x:"; }, "drive "},
        {[] { Drive1.Drive = "X:\\a"; }, ""}, {[] { Drive1.Drive = "c:"; }, "drive "},
        {[] { Me.Unload(), Drive1.Drive = "c:"; }, "load drive "}, {[] { txtTried.Text = "a"; }, ""},
        {[] { chkTried.Value = true; }, ""}, {[] { lstTried.AddItem("a"), lstTried.ListIndex = 0; }, ""},
        {[] { tmrTried.Interval = 7, tmrTried.Enabled = true; }, ""}, {[] { Me.Width = Me.Height = 9; }, ""}};
    for (const auto &[assign, raised] : rows) {
        assign();
        EXPECT_EQ(Told(), raised);
    }
}

TEST_F(Screens, ListsHoldRowsAndFiles)
{
    Put("b.htm");
    Put("A.txt");
    lstTried.SetRows({"a", "b", "c"});
    lstTried.ListIndex = 2;
    lstTried.SetList(3, "d");
    lstTried.RemoveItem(1);
    EXPECT_ALL(lstTried.Rows() == (std::vector<Text>{"a", "c", "d"}), lstTried.ListIndex == 1);
    lstTried.RemoveItem(1);
    EXPECT_EQ(lstTried.ListIndex, -1) << "gone with its row";
    const auto revision = lstTried.Revision();
    for (const Handler &failing :
        std::vector<Handler>{[] { lstTried.SetList(3, ""); }, [] { lstTried.SetList(-1, ""); },
            [] { lstTried.RemoveItem(2); }, [] { lstTried.ListIndex = 2; }, [] { lstTried.ListIndex = -2; },
            [] { Dir1.Path = "x:\\gone"; }, [] { File1.Path = "x:\\b.htm"; }, [] { Drive1.Drive = "q:"; }})
        EXPECT_THROW(failing(), RuntimeFailure);
    EXPECT_EQ(lstTried.Revision(), revision);
    EXPECT_EQ(lstTried.List(1) + lstTried.List(2) + lstTried.List(-1), "d");
    File1.Path = "x:\\";
    EXPECT_EQ(File1.List(0) + File1.List(1) + File1.List(2) + File1.List(-1), "A.txtb.htm");
    Put("d/e/c.htm");
    Me.Show();
    const std::vector<std::tuple<Text, int, Text>> rows = {{"x:\\d", 0, "x:\\d\\e"}, {"x:\\d", 1, ""},
        {"x:\\d", -1, "x:\\d"}, {"x:\\d", -2, "x:\\"}, {"x:\\d", -3, ""}, {"x:\\", 0, "x:\\d"}, {"x:\\", 1, ""},
        {"x:\\", -1, "x:\\"}, {"x:\\", -2, ""}};
    for (const auto &[directory, row, path] : rows) {
        Dir1.Path = directory;
        EXPECT_ALL(Dir1.List(row) == path, UserHighlight(Dir1, row) != path.empty()) << directory << row;
        EXPECT_EQ(Dir1.ListIndex(), path.empty() ? -1 : row) << "only a row that is there is highlighted";
    }
}

TEST_F(Screens, GatesRefuseWhatNoUserCouldDo)
{
    const auto refused = [] { return !UserClick(btnJob) && !UserClick(optTried) && !UserClose(Me); };
    EXPECT_ALL(refused(), !TimerTick(tmrTried), !Me.Loaded);
    lstTried.AddItem("row");
    EXPECT_ALL(refused(), !UserSelect(lstTried, 0)) << "not showing";
    Me.Show();
    Me.CloseRefused = true;
    EXPECT_ALL(UserClick(btnJob), UserClick(optTried));
    btnJob.Visible = mnuTried.Enabled = false;
    EXPECT_TRUE(refused());
    btnJob.Visible = mnuTried.Enabled = true;
    btnJob.Enabled = mnuTried.Visible = false;
    EXPECT_TRUE(refused());
    EXPECT_NONE(UserDoubleClick(lstTried), UserSelect(lstTried, 1), UserSelect(lstTried, -1));
    EXPECT_NONE(UserGo(Dir1, "x:\\gone"), UserPick(Drive1, "q:"), TimerTick(tmrTried));
    EXPECT_ALL(UserSelect(lstTried, 0), UserDoubleClick(lstTried), UserClick(chkTried), chkTried.Value);
    for (const char key : {'a', 'x', 'y', '\r', '\xe4'})
        EXPECT_TRUE(UserKey(txtTried, key));
    EXPECT_EQ(txtTried.Text, "az\xe4");
    tmrTried.Enabled = true;
    job = DoEvents;
    front.AtYield = [] { EXPECT_FALSE(TimerTick(tmrTried)) << "a timer isn't entered again"; };
    EXPECT_ALL(TimerTick(tmrTried), TimerTick(tmrTried));
    EXPECT_EQ(Told(), "load job row double tick timer timer ");
    job = [] { Me.Unload(); };
    UserKey(txtTried, 'q');
    EXPECT_FALSE(Me.Loaded) << "a key for a screen that its handler closed doesn't bring it back";
}

TEST_F(Screens, WhatNothingTrapsEndsTheProgram)
{
    const auto clickJob = [] { UserClick(btnJob); };
    job = [] { Trap([] { Tell("yield", DoEvents), Tell("never"); }), Tell("never"); };
    other = [] { Fail("broken", "here"); };
    Lives(clickJob, endFailure, "job yield other served 1");
    other = [] { Trap([] { End(); }); };
    Lives(clickJob, 0, "job yield other served 0");
    other = [] { Trap([] { Standstill("here", "no end"); }); };
    Lives(clickJob, endStandstill, "job yield other served 0");
    other = [] { Trap([] { Fail("broken", "here"); }); };
    Lives(clickJob, 255, "job yield other other again never never 0");
    other = [] { DevMode = true, Trap([] { Fail("broken", "here"); }); };
    Lives([] { Tell(UserClick(btnOther) && UserClick(btnJob) ? "on" : "over"); }, endFailure, "other over 1");
}

TEST_F(Screens, LastScreenClosedEndsTheProgram)
{
    Lives([] { UserClose(Me); }, 0, "0");
    const Handler closings = [] {
        Next.Show();
        refusesClose = true;
        Tell(UserClose(Me) && !Me.Loaded && UserClose(Next) && Next.Visible ? "refused" : "closed");
    };
    Lives(closings, 255, "refused 0");
    other = [] { Me.Unload(); };
    job = [] { Tell("yield", DoEvents), Next.Show(); };
    Lives([] { UserClick(btnJob); }, 255, "job yield other served 0");
    job = DoEvents;
    Lives([] { UserClick(btnJob); }, 0, "job other served 0");
}
