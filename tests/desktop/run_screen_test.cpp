// What a user can do during a run.
#include "WindowTest.h"
#include "engine/frmProcess.h"
#include "report/frmGeneratingReport.h"
#include "toolkit/Gates.h"
#include "wizard/frmDoItAlready.h"
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

struct Run : WindowTest {
    static constexpr int pageCount = 200;

    // Makes a site whose pages have many links to one another.
    void MakeSite() const
    {
        const std::filesystem::path site = program / "made";
        std::filesystem::create_directory(site);
        for (int page = 0; page < pageCount; ++page) {
            std::ofstream file(site / ("page" + std::to_string(page) + ".htm"));
            file << "<html><body>";
            for (int link = 0; link < 20; ++link)
                file << "<a href=\"page" << (page + link) % pageCount << ".htm\">further</a> ";
            file << "</body></html>";
        }
        LocalSiteDir = Paths::ProgramDir() + "\\made\\";
    }
    // Starts the run as a user does. Actions during the run must be set up before.
    void StartRun()
    {
        MakeProject();
        MakeSite();
        GoTo(frmDoItAlready::Me);
        Click("frmDoItAlready.btnDoItAlready");
    }
    static int Files() { return std::stoi(Shows("frmProcess.lblFilesCnt")); }
    // Runs theAction during the run, once theFiles pages have been processed.
    template <class Action> static void At(int theFiles, Action theAction)
    {
        When([=] { return frmProcess::Me.Visible && Files() >= theFiles; }, theAction);
    }
    // A control as it is on the screen now, without repainting it.
    QImage Seen(const Text &theName) const
    {
        const QWidget *widget = WidgetOf(theName);
        const QPoint place = widget->mapTo(widget->window(), QPoint());
        return widget->screen()
            ->grabWindow(widget->window()->winId(), place.x(), place.y(), widget->width(), widget->height())
            .toImage();
    }
    static bool IsBlank(const QImage &thePicture)
    {
        QImage plain(thePicture.size(), thePicture.format());
        plain.fill(thePicture.pixelColor(0, 0));
        return thePicture.isNull() || plain == thePicture;
    }
    void ClickMenu(const char *theMenu, const char *theItem) const
    {
        auto *bar = WindowOf("frmProcess")->findChild<QMenuBar *>();
        for (QAction *action : bar->actions())
            if (action->objectName() == QLatin1String(theMenu)) {
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action).center());
                QMenu *menu = action->menu();
                ASSERT_TRUE(WaitUntil([&] { return menu->isVisible(); }));
                for (QAction *item : menu->actions())
                    if (item->objectName() == QLatin1String(theItem))
                        return QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
            }
        FAIL() << theItem;
    }
    std::size_t NewPages() const
    {
        const std::filesystem::directory_iterator pages(program / "0001");
        return static_cast<std::size_t>(std::distance(begin(pages), end(pages)));
    }
    // Waits for the report and leaves the program.
    void LeaveReport()
    {
        AwaitScreen("frmReport");
        EXPECT_TRUE(std::filesystem::exists(program / "0001_store" / "report.html"));
        EXPECT_FALSE(WindowOf("frmProcess"));
        AnswerNextBox("Yes");
        WindowOf("frmReport")->close();
    }
};

TEST_F(Run, PausesAndGoesOn)
{
    int files = 0, pauses = 0, tips = 0;
    bool isCovered = false;
    QRect place;
    QImage paused, late;
    At(5, [&] {
        place = WidgetOf("frmProcess.btnPause")->geometry();
        WidgetOf("frmProcess.btnPause")->setFocus(Qt::TabFocusReason);
        When([] { return The("frmProcess.btnResume").Now.Visible; },
            [&] {
                files = Files();
                // The counters stand still and are painted, and nothing is written to the disk.
                EXPECT_TRUE(WaitUntil([&] {
                    paused = Seen("frmProcess.lblFilesCnt");
                    return paused ==
                           WidgetOf("frmProcess.lblFilesCnt")->grab().toImage().convertToFormat(paused.format());
                }));
                std::size_t pages = 0;
                EXPECT_TRUE(WaitUntil([&] {
                    pages = NewPages();
                    WaitUntil([] { return false; }, 80);
                    return NewPages() == pages;
                })) << "only the writer's last pages may still come";
                WaitUntil([] { return false; }, 60);
                EXPECT_EQ(Files(), files);
                EXPECT_EQ(NewPages(), pages);
                EXPECT_GT(pages, 0u);
                EXPECT_FALSE(WidgetOf("frmProcess.btnPause")->isVisible());
                EXPECT_EQ(WidgetOf("frmProcess.btnResume")->geometry(), place);
                EXPECT_EQ(Focused(), "btnResume");
                ++pauses;
                Key(Qt::Key_Space);
            });
        Key(Qt::Key_Space);
        EXPECT_TRUE(WaitUntil([&] { return WidgetOf("frmProcess.btnPause")->isVisible(); }));
        EXPECT_EQ(Focused(), "btnPause");
        const int afterPause = Files();
        At(afterPause + 10, [&] {
            late = Seen("frmProcess.lblFilesCnt");
            // The window of a run cannot be closed.
            WindowOf("frmProcess")->move(0, 0);
            WindowOf("frmProcess")->close();
            EXPECT_TRUE(frmProcess::Me.Visible);
            // The tip names Cancel and does not cover it.
            for (const QWidget *tip : QApplication::topLevelWidgets())
                if (tip->isVisible() && tip->windowType() == Qt::ToolTip) {
                    const QWidget *cancel = WidgetOf("frmProcess.btnCancel");
                    EXPECT_FALSE(tip->geometry().intersects({cancel->mapToGlobal(QPoint()), cancel->size()}));
                    ++tips;
                }
            // While the report is made, a wider run window must not stick out.
            When([] { return frmGeneratingReport::Me.Visible; },
                [&] { isCovered = frmProcess::Me.Visible && WindowOf("frmProcess")->isHidden(); });
        });
    });
    RunProgram([&] {
        StartRun();
        LeaveReport();
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(pauses, 1);
    EXPECT_EQ(tips, 1);
    EXPECT_TRUE(isCovered);
    EXPECT_LT(files, pageCount);
    EXPECT_FALSE(IsBlank(paused));
    // Only the run itself can have painted this.
    EXPECT_NE(late, paused);
    EXPECT_FALSE(IsBlank(late));
    EXPECT_EQ(NewPages(), pageCount * 21u);
}

TEST_F(Run, CancelledLeadsToTheReport)
{
    int files = 0;
    At(2, [&] {
        files = Files();
        // Cancel works during a pause, too.
        When([] { return The("frmProcess.btnResume").Now.Visible; }, [&] { Click("frmProcess.btnCancel"); });
        Click("frmProcess.btnPause");
    });
    RunProgram([&] {
        StartRun();
        LeaveReport();
    });
    EXPECT_EQ(code, 0);
    EXPECT_GT(files, 0);
    EXPECT_LT(NewPages(), pageCount * 21u);
}

TEST_F(Run, ExitFromItsMidst)
{
    std::vector<int> asked;
    At(1, [&] {
        asked.push_back(Files());
        AnswerNextBox("No");
        ClickMenu("mnuFile", "optFile_Exit");
        EXPECT_EQ(boxSaid, "Are you sure you want to exit?");
        EXPECT_TRUE(WindowOf("frmProcess")->isVisible());
        At(asked.back() + 5, [&] {
            asked.push_back(Files());
            AnswerNextBox("Yes");
            ClickMenu("mnuFile", "optFile_Exit");
        });
    });
    RunProgram([&] {
        StartRun();
        EXPECT_TRUE(WaitUntil([] { return ProgramEnded(); }));
    });
    EXPECT_EQ(code, 0);
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_LT(asked[1], pageCount);
    EXPECT_EQ(Files(), asked[1]);
    const std::size_t pages = NewPages();
    for (const QWidget *window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->isVisible()) << window->objectName().toStdString();
    WaitUntil([] { return false; }, 60);
    EXPECT_EQ(NewPages(), pages);
    EXPECT_FALSE(std::filesystem::exists(program / "0001_store" / "report.html"));
}
