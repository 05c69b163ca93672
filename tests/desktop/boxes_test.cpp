// Message boxes, and unusual texts in boxes and on screens.
#include "WindowTest.h"
#include "desktop/Boxes.h"
#include "disk/Losses.h"
#include "toolkit/Gates.h"
#include "wizard/frmConfirm.h"
#include "wizard/frmDoItAlready.h"
#include "wizard/frmLoad.h"
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTextDocumentFragment>
#include <QTextEdit>

// A screen with one button, which runs theClick.
static Form &Probe(Handler theClick)
{
    static Form probe{"frmProbe", {.Width = 600, .Height = 435}};
    static Button go{probe, "go", {.At = {20, 20, 100, 30}, .Caption = "Go", .Click = theClick}};
    static MenuItem menu{probe, "menu", {.Caption = "File"}};
    return probe;
}

static Text ButtonsOf(const QWidget &theBox)
{
    const auto &box = dynamic_cast<const QMessageBox &>(theBox);
    Text Result;
    for (const auto *button : box.buttons()) {
        Result += button == box.focusWidget() ? "*" : "";
        Result += button->text().remove('&').toStdString() + " ";
    }
    return Result;
}

static Text Informs(const QWidget &theBox)
{
    return dynamic_cast<const QMessageBox &>(theBox).informativeText().toStdString();
}

TEST_F(WindowTest, BoxesByTheirFlags)
{
    struct Case {
        int Flags;
        QMessageBox::Icon Icon;
        const char *Buttons;
        Qt::Key Answer;
        int Result;
    };
    const Case cases[] = {
        {msgOK + 64, QMessageBox::Information, "*OK ", Qt::Key_Escape, answerOK},
        {msgYesNo, QMessageBox::NoIcon, "*Yes No ", Qt::Key_Return, answerYes},
        {msgYesNo + 32, QMessageBox::Question, "*Yes No ", Qt::Key_Escape, answerNo},
        {msgYesNo + msgStop + msgThirdDefault, QMessageBox::Critical, "Yes *No ", Qt::Key_Return, answerNo},
        {msgYesNo + msgStop + msgThirdDefault, QMessageBox::Critical, "Yes *No ", Qt::Key_Escape, answerNo},
    };
    StartProgram(frmSplash::Me);
    GoTo(frmLoad::Me);
    for (const auto &[flags, icon, buttons, answer, result] : cases) {
        SCOPED_TRACE(flags);
        InNextBox([&](QWidget &theBox) {
            EXPECT_EQ(dynamic_cast<QMessageBox &>(theBox).icon(), icon);
            EXPECT_EQ(ButtonsOf(theBox), buttons);
            EXPECT_EQ(theBox.windowTitle(), "Exit");
            QTest::keyClick(theBox.focusWidget(), answer);
        });
        EXPECT_EQ(MsgBox("Are you sure?", flags, "Exit"), result);
        EXPECT_EQ(boxSaid, "Are you sure?");
    }
}

TEST_F(WindowTest, EqualBoxesCanBeSilenced)
{
    static int times;
    Form &probe = Probe([] {
        for (times = 1; times <= 6; ++times)
            MsgBox("cannot yet accept this case");
        MsgBox("Error copying");
    });
    Text seen;
    // Notes for each box whether it can be silenced, and silences the fourth.
    const std::function<void(QWidget &)> answer = [&](QWidget &theBox) {
        auto *optOut = theBox.findChild<QCheckBox *>();
        seen += std::to_string(times) + (optOut ? "+ " : " ");
        if (times == 4 && optOut) {
            EXPECT_EQ(optOut->text(), "Don't show this message again during this run");
            QTest::mouseClick(optOut, Qt::LeftButton, {}, QPoint(8, optOut->height() / 2));
        }
        if (times < 7)
            InNextBox(answer);
        EXPECT_EQ(boxSaid, times < 7 ? "cannot yet accept this case" : "Error copying");
        QTest::keyClick(&theBox, Qt::Key_Return);
    };
    RunProgram(
        [&] {
            for (int action = 0; action < 2; ++action) {
                seen.clear();
                InNextBox(answer);
                Click("frmProbe.go");
                EXPECT_EQ(seen, "1 2 3+ 4+ 7 ");
            }
            WindowOf("frmProbe")->close();
        },
        probe);
    EXPECT_EQ(code, 0);
}

TEST_F(WindowTest, UntrappedFailure)
{
    RunProgram(
        [&] {
            InNextBox([](QWidget &theBox) {
                EXPECT_EQ(dynamic_cast<QMessageBox &>(theBox).icon(), QMessageBox::Critical);
                const Text informs = Informs(theBox);
                EXPECT_TRUE(informs.starts_with("no such <b>directory</b>\n\nc:\\R&D\\<i>x</i>")) << informs;
                // The text must not be taken for HTML.
                for (const auto *label : theBox.findChildren<QLabel *>())
                    EXPECT_TRUE(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
                QTest::keyClick(&theBox, Qt::Key_Return);
            });
            Click("frmProbe.go");
            EXPECT_EQ(boxSaid, "Ferncastle must close because of an unexpected error.");
        },
        Probe([] { Fail("no such <b>directory</b>", "c:\\R&D\\<i>x</i>"); }));
    EXPECT_EQ(code, 3);
}

TEST_F(WindowTest, StartBesideAnotherProcess)
{
    EXPECT_TRUE(Application::MayWorkBesideOthers());
    for (const bool goesOn : {false, true}) {
        AnswerNextBox(goesOn ? "Yes" : "No");
        EXPECT_EQ(Application::MayWorkBesideOthers(), goesOn);
        EXPECT_NE(boxSaid.find("already running"), Text::npos);
    }
}

TEST_F(WindowTest, Standstill)
{
    MakeProject();
    RunProgram(
        [&] {
            InNextBox([](QWidget &theBox) {
                const Text informs = Informs(theBox);
                for (const char *words : {"There are too few keywords.", "kept in project 0001", "add keywords"})
                    EXPECT_NE(informs.find(words), Text::npos) << words << ": " << informs;
                // Nothing can change any more, so there is nothing to wait for.
                EXPECT_EQ(ButtonsOf(theBox), "*End Program ");
                QTest::keyClick(theBox.focusWidget(), Qt::Key_Return);
            });
            Click("frmProbe.go");
        },
        Probe([] { ::Standstill("MakeKeywordedFileName", "There are too few keywords."); }));
    EXPECT_EQ(code, 4);
}

TEST_F(WindowTest, ReasonsAndNames)
{
    StartProgram(frmSplash::Me);
    Losses::Note({"No space left on device", "c:\\site\\a b.htm"});
    for (const bool isKnown : {true, false}) {
        InNextBox([&](QWidget &theBox) {
            EXPECT_EQ(Informs(theBox), isKnown ? "Reason: No space left on device." : "");
            QTest::keyClick(&theBox, Qt::Key_Return);
        });
        MsgBox(Text("Error copying:\r\nfrom:  c:\\site\\") + (isKnown ? "a b" : "other") + ".htm\r\nTo:  c:\\b.htm");
    }
    const Text error = Boxes::WithoutNames("Error:\r\nThe file:\r\nc:\\a b\\1.sav\r\ncould not be found.");
    EXPECT_EQ(error, Boxes::WithoutNames("Error:\r\nThe file:\r\nd:\\22.sav\r\ncould not be found."));
    EXPECT_NE(error, Boxes::WithoutNames("Error:\r\nThe file:\r\nc:\\a b\\1.sav\r\nhas no delimeters."));
    EXPECT_EQ(
        Boxes::WithoutNames("File \"x.htm\" does not exist - p"), Boxes::WithoutNames("File \"y\" does not exist - p"));
    EXPECT_EQ(Boxes::WithoutNames("this case:  a.gif\r\nq"), Boxes::WithoutNames("this case:  ../b.gif\r\nq"));
}

TEST_F(WindowTest, TextsOfEveryKind)
{
    StartProgram(frmSplash::Me);
    MakeProject();
    // Not UTF-8, and with characters that have a meaning in menus and in HTML.
    ProjectName = "F\xE4rn & <b>S\xF6hne</b> && R&D";
    const QString name = QStringLiteral("F\u00E4rn & <b>S\u00F6hne</b> && R&D");
    LocalSiteDir = Paths::ProgramDir();
    for (int deep = 0; deep < 12; ++deep)
        LocalSiteDir += "\\a_directory_far_below_&_beyond";
    std::ofstream(program / "0001_store" / "0001.key", std::ios::binary) << ProjectName << "\r\nfern\r\n";
    std::ofstream(program / "0001_store" / "0001.name", std::ios::binary) << ProjectName << "[]";
    for (const Text screen : {"frmConfirm", "frmDoItAlready"}) {
        GoTo(TheForm(screen.c_str()));
        EXPECT_EQ(qobject_cast<QLabel *>(WidgetOf(screen + ".lblProjName"))->text(), name);
        const QWidget *site = WidgetOf(screen + ".lblOrigSiteDir");
        EXPECT_EQ(site->toolTip().toStdString(), LocalSiteDir);
        EXPECT_EQ(site->width(), 350);
        auto *chosen = qobject_cast<QLabel *>(WidgetOf(screen + ".lblProjName"));
        QTest::mouseDClick(chosen, Qt::LeftButton, {}, QPoint(8, 13));
        EXPECT_EQ(chosen->selectedText(), name.left(4));
    }
    GoTo(frmConfirm::Me);
    // The tip of a project tells it from another one of the same name.
    const QString more = QString::fromStdString(
        "\nProject 0001\nDomain: fernandfriends.example\nFolder: " + Paths::ProgramDir() + "\\sample\\");
    const auto row = [&](const char *theList) {
        const QAbstractItemModel *rows = qobject_cast<QListView *>(WidgetOf(theList))->model();
        const QString tip = rows->index(0, 0).data(Qt::ToolTipRole).toString();
        EXPECT_EQ(Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip,
            Text(theList) == "frmLoad.lstProjNames" ? name + more : name);
        return rows->index(0, 0).data().toString();
    };
    EXPECT_EQ(row("frmConfirm.lstKeywords"), name);
    GoTo(frmLoad::Me);
    EXPECT_EQ(row("frmLoad.lstProjNames"), name);
    InNextBox([&](QWidget &theBox) {
        EXPECT_EQ(dynamic_cast<QMessageBox &>(theBox).textFormat(), Qt::PlainText);
        // All of the text must be readable: a long path wraps. What is copied is the path itself.
        auto *words = theBox.findChild<QTextEdit *>("qt_msgbox_label_words");
        EXPECT_LE(words->document()->size().width(), words->width());
        EXPECT_NEAR(words->document()->size().height(), words->height(), 6);
        words->selectAll();
        words->copy();
        EXPECT_LE(theBox.width(), theBox.screen()->availableGeometry().width());
        EXPECT_LE(theBox.height(), theBox.screen()->availableGeometry().height());
        QTest::keyClick(&theBox, Qt::Key_Return);
    });
    MsgBox("Error copying:\r\nfrom:  " + LocalSiteDir + LocalSiteDir + "\r\nTo:  " + ProjectName);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), boxSaid);
    EXPECT_EQ(boxSaid, "Error copying:\nfrom:  " + LocalSiteDir + LocalSiteDir + "\nTo:  " + name.toStdString());
}
