// What keeps a user from getting lost: where screens open, where the focus goes, hints, and what is done about missing
// files.
#include "WindowTest.h"
#include "desktop/Placement.h"
#include "desktop/Theme.h"
#include "toolkit/Gates.h"
#include "wizard/frmCreate.h"
#include "wizard/frmDirectory.h"
#include "wizard/frmKeywords.h"
#include "wizard/frmMenu.h"
#include "wizard/frmWelcome.h"
#include <QClipboard>
#include <QLabel>
#include <QListView>
#include <QRegularExpression>
#include <QScreen>
#include <cmath>

struct Guidance : WindowTest {
};

// Leaves each screen with its help box out, for the next one to open narrow at its first topic.
TEST_F(Guidance, StayInPlaceAndOfferHelpWhenNarrow)
{
    StartProgram(frmSplash::Me);
    MakeProject();
    QPoint home;
    for (const bool isDragged : {false, true}) {
        GoTo(frmKeywords::Me);
        if (isDragged) {
            WaitUntil([] { return false; }, 300);
            WindowOf("frmKeywords")->move(home += QPoint(-23, 41));
        } else {
            home = WindowOf("frmKeywords")->pos();
            const QRect screen = WindowOf("frmKeywords")->screen()->availableGeometry();
            EXPECT_LE((WindowOf("frmKeywords")->geometry().center() - screen.center()).manhattanLength(), 6);
        }
        for (Form *form : Form::All()) {
            // Nothing can leave its help box out before the welcome screen; a run would begin on its own screen.
            if (form == &frmWelcome::Me || Text(form->Name) == "frmProcess")
                continue;
            bool hasHelp = false;
            std::vector<Control *> near;
            for (Element *element : form->Elements())
                if (auto *spot = dynamic_cast<Image *>(element); spot && spot->Design.As == Role::Help) {
                    hasHelp = true;
                    if (spot->Design.At.Left <= 418)
                        near.push_back(spot);
                }
            if (!hasHelp)
                continue;
            SCOPED_TRACE(form->Name);
            ASSERT_FALSE(near.empty());
            GoTo(*form);
            EXPECT_EQ(WindowOf(form->Name)->pos(), home);
            HelpBoxOpen = true;
            Click(Text(form->Name) + "." + near.front()->Name);
            EXPECT_EQ(WindowOf(form->Name)->width(), 440);
            if (isDragged)
                continue;
            Click(Text(form->Name) + "." + near.front()->Name);
            EXPECT_EQ(WindowOf(form->Name)->width(), 600);
        }
        // Wide open it stays on the display, and goes back to where it was.
        GoTo(frmMenu::Me);
        Click("frmMenu.hlpFAQ");
        EXPECT_TRUE(WindowOf("frmMenu")->screen()->availableGeometry().contains(WindowOf("frmMenu")->geometry()));
        Click("frmMenu.hlpFAQ");
        EXPECT_EQ(WindowOf("frmMenu")->pos(), home);
    }
    const QRect free(0, 0, 1000, 700);
    EXPECT_EQ(Placement::Fitted({-20, 650, 600, 435}, free), QRect(0, 265, 600, 435));
    EXPECT_EQ(Placement::Fitted({700, -9, 600, 900}, free), QRect(400, 0, 600, 900));
}

// What the mouse and the keyboard leave selected and where they leave the focus.
TEST_F(Guidance, FocusAndSelection)
{
    StartProgram(frmSplash::Me);
    MakeProject();
    GoTo(frmKeywords::Me);
    auto &list = static_cast<ListBox &>(The("frmKeywords.lstKeywords"));
    WidgetOf("frmKeywords.lstKeywords")->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(list.NowIndex, -1);
    Click("frmKeywords.btnKeywordRemove");
    EXPECT_EQ(Focused(), "lstKeywords");
    Key(Qt::Key_Space);
    EXPECT_EQ(list.NowIndex, 0);
    Key(Qt::Key_Down);
    EXPECT_EQ(list.NowIndex, 1);
    // A click on a label goes to its box, and a press of a picture leaves the focus there.
    QTest::mouseClick(WindowOf("frmKeywords"), Qt::LeftButton, {}, WidgetOf("frmKeywords.Label4")->geometry().center());
    for (const char *word : {"peat", "frond"}) {
        Type(word);
        Click("frmKeywords.btn_AddKeyword");
    }
    EXPECT_EQ(list.NowRows.back(), "frond");
    EXPECT_EQ(list.NowRows.size(), 6u);
    // Pasted lines are added one by one; a refused one stays in the box.
    QGuiApplication::clipboard()->setText("one\r\ntwo words\na+b\n\nlast\n");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Shows("frmKeywords.Text1"), "a+b");
    EXPECT_EQ(list.NowRows[7], "two words");
    EXPECT_EQ(list.NowRows.back(), "last");
    list.AddItem("two\nlines");
    const auto &rows = *qobject_cast<QListView *>(WidgetOf("frmKeywords.lstKeywords"))->model();
    EXPECT_TRUE(WaitUntil([&] { return rows.rowCount() == 10; }));
    EXPECT_EQ(rows.index(9, 0).data().toString(), QStringLiteral("two\u21B5lines"));

    GoTo(frmCreate::Me);
    Type("A name");
    Key(Qt::Key_Return);
    EXPECT_EQ(Focused(), "txtDomainName");
    EXPECT_EQ(Shows("frmCreate.textHBHeading"), "Domain Name");
    GoTo(TheForm("frmQuillmark"));
    EXPECT_EQ(Focused(), "chkUsingQuillmark");
    Key(Qt::Key_Return);
    AwaitScreen("frmConfirm");
    EXPECT_FALSE(UsingQuillmark);
}

TEST_F(Guidance, Hints)
{
    StartProgram(frmSplash::Me);
    MakeProject();
    const auto awaitHint = [this](const char *theForm, const QString &theWords) {
        const auto *hint = WindowOf(theForm)->findChild<QLabel *>("hint");
        EXPECT_TRUE(WaitUntil([&] {
            return hint->text().contains(theWords) && hint->isVisible() != theWords.isEmpty();
        })) << theWords.toStdString()
            << ", but " << hint->text().toStdString();
        EXPECT_LE(hint->heightForWidth(hint->width()), hint->height());
    };
    auto *picker = &static_cast<DirList &>(The("frmDirectory.Dir1"));
    GoTo(frmDirectory::Me);
    awaitHint("frmDirectory", "");
    picker->Path = Paths::ProgramDir();
    awaitHint("frmDirectory", "own folder");
    auto *rows = qobject_cast<QListView *>(WidgetOf("frmDirectory.Dir1"));
    const int bottom = rows->viewport()->height() - 1;
    EXPECT_TRUE(rows->indexAt({20, bottom}).data().toString().endsWith("sample")) << "the sample can be seen";
    for (const char *directory : {"0001", "sample", "imgs"}) {
        picker->Path = Paths::ProgramDir() + "\\" + directory;
        awaitHint("frmDirectory", Text(directory) == "sample" ? "" : "own folder");
    }
    std::ofstream(program / "0001_store" / "0001.dir") << "c:\\gone\\[]";
    GoTo(frmMenu::Me);
    GoTo(frmDirectory::Me);
    awaitHint("frmDirectory", "c:\\gone\\ is not there");
    std::ofstream(program / "0001_store" / "0001.key", std::ios::binary) << "fern\r\nFERN\r\nmoss\r\n";
    GoTo(TheForm("frmKeywordsHowMany"));
    awaitHint("frmKeywordsHowMany", "only 2 different");
    std::ofstream(program / "0001_store" / "0001.key", std::ios::binary) << "fern\r\ngarden fern\r\nmoss\r\n";
    GoTo(frmMenu::Me);
    GoTo(TheForm("frmKeywordsHowMany"));
    awaitHint("frmKeywordsHowMany", "part of another");
    Type("2");
    EXPECT_TRUE(WaitUntil([&] { return !WindowOf("frmKeywordsHowMany")->findChild<QLabel *>("hint")->isVisible(); }));
}

TEST_F(Guidance, MissingFilesAreNamedAndDoWithout)
{
    for (const char *file : {"imgs/btnNext.jpg", "imgs/btnNext@2x.jpg", "report_template.html"})
        std::filesystem::remove(program / file);
    AnswerNextBox("OK");
    Application::TellMissing();
    EXPECT_NE(boxSaid.find("imgs\\btnNext.jpg\nreport_template.html\n\n"), Text::npos) << boxSaid;
    StartProgram(frmSplash::Me);
    MakeProject();
    GoTo(TheForm("frmQuillmark"));
    Click("frmQuillmark.btnNext");
    AwaitScreen("frmConfirm");
    // The start screen can be closed when the program never gets past it.
    GoTo(frmSplash::Me);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(frmSplash::Me.Visible);
    WindowOf("frmSplash")->OfferToClose();
    Key(Qt::Key_Escape);
    EXPECT_TRUE(ProgramEnded());
}

// A project whose store is a link: within the program's folder it works, else a box says why Next does nothing.
TEST_F(Guidance, LinkedFolders)
{
    StartProgram(frmSplash::Me);
    MakeProject();
    namespace fs = std::filesystem;
    const fs::path store = program / "0001_store", kept = program / "kept", outside = program.string() + " outside";
    fs::rename(store, kept);
    PutLink("kept", store);
    if (!fs::exists(store))
        GTEST_SKIP() << "no links can be made here";
    GoTo(frmDirectory::Me);
    Click("frmDirectory.btnNext");
    AwaitScreen("frmKeywords");
    EXPECT_TRUE(fs::is_regular_file(kept / "0001.dir"));
    fs::remove(store);
    fs::rename(kept, outside);
    fs::create_directory_symlink(outside, store);
    GoTo(frmDirectory::Me);
    const auto before = fs::last_write_time(outside / "0001.dom");
    AnswerNextBox("OK");
    Click("frmDirectory.btnNext");
    EXPECT_TRUE(WaitUntil([&] { return boxSaid.find("\n" + outside.string() + "\n") != Text::npos; })) << boxSaid;
    EXPECT_NE(boxSaid.find("\\0001_store\n\nThis is a link to"), Text::npos) << boxSaid;
    EXPECT_TRUE(frmDirectory::Me.Visible && !frmKeywords::Me.Visible);
    EXPECT_EQ(fs::last_write_time(outside / "0001.dom"), before);
    fs::remove_all(outside);
}

TEST(Theme, Contrasts)
{
    const auto light = [](const QColor &theColour) {
        const auto part = [](double x) { return x <= 0.03928 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4); };
        return 0.2126 * part(theColour.redF()) + 0.7152 * part(theColour.greenF()) + 0.0722 * part(theColour.blueF());
    };
    const auto contrast = [&](const QColor &a, const QColor &b) {
        return (std::max(light(a), light(b)) + 0.05) / (std::min(light(a), light(b)) + 0.05);
    };
    const QPalette palette = Theme::LightPalette();
    for (const QColor &ground : {Theme::White, Theme::Paper, Theme::Mint}) {
        EXPECT_GE(contrast(Theme::Border, ground), 3);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
                EXPECT_GE(contrast(palette.color(group, role), ground), 4.5) << group << role;
    }
    // What the style sheets say.
    for (const QString &style : {Theme::LineEditStyle(), Theme::ListStyle(), Theme::ComboBoxStyle(),
             Theme::ToolBarStyle(), Theme::MessageBoxStyle(), Theme::HintStyle()}) {
        auto borders = QRegularExpression("border: [0-9]px solid (#[0-9A-F]{6})").globalMatch(style);
        EXPECT_TRUE(borders.hasNext());
        while (borders.hasNext())
            EXPECT_GE(contrast(QColor(borders.next().captured(1)), Theme::White), 3) << style.toStdString();
    }
}
