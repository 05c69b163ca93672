// The notice of what could not be read or written, and its list.
#include "WindowTest.h"
#include "desktop/NoticeList.h"
#include "disk/Losses.h"
#include "engine/frmProcess.h"
#include "toolkit/Gates.h"
#include "wizard/frmCreate.h"
#include "wizard/frmDoItAlready.h"
#include "wizard/frmMenu.h"
#include <QClipboard>
#include <QTreeView>

struct NoticesTest : WindowTest {
    static void Lose(const char *theFile, const char *theReason)
    {
        Losses::Note({theReason, theFile});
        TellLosses();
    }
    QAbstractButton *Strip(const char *theForm) const
    {
        return static_cast<QAbstractButton *>(WindowOf(theForm)->NoticesShown());
    }
    Text Words(const char *theForm) const
    {
        return Strip(theForm)->isVisible() ? Strip(theForm)->text().toStdString() : "";
    }
    // The list that is open; null when there is none.
    static NoticeList *List()
    {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (auto *list = qobject_cast<NoticeList *>(window); list && list->isVisible())
                return list;
        return nullptr;
    }
    static NoticeList *OpenedList()
    {
        EXPECT_TRUE(WaitUntil([] { return List() && List() == QApplication::activeWindow(); }));
        return List();
    }
    static Text Cell(int theRow, int theColumn)
    {
        const QAbstractItemModel *rows = List()->findChild<QTreeView *>()->model();
        return rows->index(theRow, theColumn).data().toString().toStdString();
    }
    static void Press(const char *theButton)
    {
        for (auto *button : List()->findChildren<QAbstractButton *>())
            if (button->text() == QLatin1String(theButton))
                return QTest::mouseClick(button, Qt::LeftButton);
        ADD_FAILURE() << theButton;
    }
};

TEST_F(NoticesTest, CountedListedAndCopied)
{
    StartProgram(frmSplash::Me);
    GoTo(frmMenu::Me);
    EXPECT_EQ(Words("frmMenu"), "");
    const Text focus = Focused();
    Lose("c:\\0001\\a.htm", "No space left on device");
    EXPECT_EQ(Words("frmMenu"), "1 file could not be read or written");
    Lose("c:\\0001\\a.htm", "No space left on device");
    Lose("c:\\0001\\a.htm", "Permission denied");
    EXPECT_EQ(Words("frmMenu"), "1 file could not be read or written");
    Lose("c:\\0001\\b&c.htm", "Input/output error");
    EXPECT_EQ(Words("frmMenu"), "2 files could not be read or written");
    // It interrupts nobody.
    EXPECT_EQ(Focused(), focus);
    EXPECT_FALSE(List());
    EXPECT_EQ(QApplication::activeWindow(), WindowOf("frmMenu"));

    QTest::mouseClick(Strip("frmMenu"), Qt::LeftButton);
    ASSERT_TRUE(OpenedList());
    EXPECT_EQ(Cell(0, 0) + ", " + Cell(0, 1) + ", " + Cell(0, 2), "c:\\0001\\a.htm, No space left on device, 2");
    EXPECT_EQ(Cell(1, 1) + ", " + Cell(2, 0), "Permission denied, c:\\0001\\b&c.htm");
    // It goes on counting while it is open, and the program can be used.
    Lose("c:\\0001\\a.htm", "No space left on device");
    Lose("c:\\0001\\d.htm", "Input/output error");
    EXPECT_TRUE(WaitUntil([] { return Cell(0, 2) == "3" && Cell(3, 0) == "c:\\0001\\d.htm"; }));
    EXPECT_EQ(Words("frmMenu"), "3 files could not be read or written");
    EXPECT_FALSE(QApplication::activeModalWidget());
    Press("Copy");
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
        "c:\\0001\\a.htm: No space left on device (3 times)\nc:\\0001\\a.htm: Permission denied\n"
        "c:\\0001\\b&c.htm: Input/output error\nc:\\0001\\d.htm: Input/output error\n");
    Key(Qt::Key_Escape);
    EXPECT_TRUE(WaitUntil([] { return !List(); }));
    // What a message box tells needs no notice.
    Losses::Note({"Input/output error", "c:\\0001\\told.htm"});
    AnswerNextBox("OK");
    MsgBox("Error copying c:\\0001\\told.htm");
    TellLosses();
    EXPECT_EQ(Words("frmMenu"), "3 files could not be read or written");
}

TEST_F(NoticesTest, ByKeyboardAndAcrossScreens)
{
    StartProgram(frmSplash::Me);
    Lose("c:\\0001\\a.htm", "No space left on device");
    GoTo(frmMenu::Me);
    EXPECT_NE(Focused(), "noticeStrip");
    // It comes before the first control of the screen.
    WidgetOf("frmMenu.btnFerncastle")->setFocus();
    Key(Qt::Key_Backtab);
    EXPECT_EQ(Focused(), "noticeStrip");
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "1 file could not be read or written");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        Key(key);
        ASSERT_TRUE(OpenedList());
        // A message box outlives the list that was active when it came.
        InNextBox([](QWidget &theBox) {
            List()->close();
            // Later, once the list has been deleted.
            QTimer::singleShot(50, &theBox, [&theBox] { QTest::keyClick(&theBox, Qt::Key_Return); });
        });
        EXPECT_EQ(MsgBox("Ready."), answerOK);
        WindowOf("frmMenu")->activateWindow();
        AwaitScreen("frmMenu");
        EXPECT_EQ(Focused(), "noticeStrip");
    }
    Key(Qt::Key_Return);
    ASSERT_TRUE(OpenedList());
    frmCreate::Me.Show();
    EXPECT_TRUE(List());
    frmMenu::Me.Unload();
    EXPECT_FALSE(List());
    AwaitScreen("frmCreate");
    EXPECT_EQ(Words("frmCreate"), "1 file could not be read or written");
}

TEST_F(NoticesTest, FromTheRunToTheReport)
{
    Text duringRun;
    When([&] { return frmProcess::Me.Visible && WindowOf("frmProcess") && !Words("frmProcess").empty(); },
        [&] { duringRun = Words("frmProcess"); });
    RunProgram([&] {
        MakeProject();
        // Something else stands where the run keeps its broken links.
        std::filesystem::create_directories(program / "0001_store" / "BrokenLinksFiles.sav" / "x");
        // The run goes on behind the broken link for longer than the windows leave events waiting.
        Text page = "<a href=\"/none.htm\">broken</a>";
        for (int link = 0; link < 6000; ++link)
            page += "<a href=\"/join.htm\">further</a>";
        std::ofstream(program / "sample" / "long.htm") << page;
        GoTo(frmDoItAlready::Me);
        EXPECT_EQ(Words("frmDoItAlready"), "");
        Click("frmDoItAlready.btnDoItAlready");
        AwaitScreen("frmReport");
        EXPECT_EQ(Words("frmReport"), "1 file could not be read or written");
        QTest::mouseClick(Strip("frmReport"), Qt::LeftButton);
        ASSERT_TRUE(OpenedList());
        EXPECT_EQ(Cell(0, 0), Paths::ProgramDir() + "\\0001_store\\BrokenLinksFiles.sav");
        EXPECT_EQ(Cell(0, 1), "not a plain file");
        Press("Close");
        // What is lost at the very end is listed when no screen is left.
        InNextBox([](QWidget &theBox) {
            When([] { return List() != nullptr; },
                [] {
                    EXPECT_EQ(Cell(1, 0), "c:\\0001\\late.htm");
                    Press("Close");
                });
            Losses::Note({"Input/output error", "c:\\0001\\late.htm"});
            QTest::keyClick(&theBox, Qt::Key_Y, Qt::AltModifier);
        });
        WindowOf("frmReport")->close();
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(duringRun, "1 file could not be read or written");
}
