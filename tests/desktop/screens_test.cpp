// What must be true of every screen: texts fit, controls have names, and the keyboard reaches what the mouse reaches.
#include "WindowTest.h"
#include "core/FileHandle.h"
#include "disk/Losses.h"
#include "toolkit/Gates.h"
#include "wizard/frmCreate.h"
#include "wizard/frmDirectory.h"
#include "wizard/frmKeywords.h"
#include "wizard/frmLoadCreate.h"
#include "wizard/frmMenu.h"
#include "wizard/frmWelcome.h"
#include <QAccessible>
#include <QLabel>
#include <QListView>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollBar>
#include <QTextEdit>
#include <QToolButton>
#include <QWindow>
#include <set>

static bool IsReading(const Control &theControl)
{
    return theControl.Design.As == Role::HelpText;
}

static bool IsFilledIn(const Control &theControl)
{
    return dynamic_cast<const TextBox *>(&theControl) || dynamic_cast<const CheckBox *>(&theControl) ||
           dynamic_cast<const ListBox *>(&theControl) || dynamic_cast<const DirList *>(&theControl) ||
           dynamic_cast<const DriveList *>(&theControl);
}

// A label for values of any length: it shows one line, and its tip shows the rest.
static bool IsValue(const Control &theControl)
{
    const TextStyle style = theControl.Design.Style;
    return style == TextStyle::Value || style == TextStyle::Counter || style == TextStyle::Status;
}

static bool IsHelpSpot(const Element &theElement)
{
    const auto *image = dynamic_cast<const Image *>(&theElement);
    return image && image->Design.As == Role::Help;
}

// The rectangle of a label's text in its window.
static QRect WordsOf(const QLabel &theLabel)
{
    const int flags = static_cast<int>(theLabel.alignment()) | (theLabel.wordWrap() ? Qt::TextWordWrap : 0);
    return theLabel.fontMetrics()
        .boundingRect(theLabel.contentsRect(), flags, theLabel.text())
        .translated(theLabel.pos());
}

// The notice of lost files is there and covers neither a menu nor anything below the menu bar.
static void ExpectNoticeBesideMenus(const Window &theWindow, const QMenuBar &theMenus, const char *theWords)
{
    const QWidget *strip = theWindow.NoticesShown();
    ASSERT_TRUE(strip && strip->isVisible());
    EXPECT_TRUE(theMenus.geometry().contains(strip->geometry()));
    for (QAction *menu : theMenus.actions())
        EXPECT_FALSE(menu->isVisible() && theMenus.actionGeometry(menu).intersects(strip->geometry()));
    const QString words = static_cast<const QAbstractButton *>(strip)->text();
    EXPECT_LT(strip->fontMetrics().horizontalAdvance(words), strip->width());
    EXPECT_EQ(words.toStdString(), theWords ? theWords : words.toStdString());
}

struct Screens : WindowTest {
    // Visits each screen, and again with each topic of its help box open.
    template <class Visit> void Walk(Visit theVisit)
    {
        StartProgram(frmSplash::Me);
        MakeProject();
        int visited = 0;
        for (Form *form : Form::All()) {
            // These are stores that are never shown.
            if (Text(form->Name) == "frmLists" || Text(form->Name) == "frmTheFile")
                continue;
            SCOPED_TRACE(form->Name);
            // Shows the run screen without starting a run, and the start screen for as long as the visit takes.
            if (auto *next = form->Find<Timer>("Timer1"); next && Text(form->Name) != "frmGeneratingReport")
                next->Enabled = false;
            GoTo(*form);
            theVisit(*form, *WindowOf(form->Name));
            ++visited;
            for (Element *element : form->Elements())
                if (IsHelpSpot(*element) && UserClick(static_cast<Control &>(*element))) {
                    SCOPED_TRACE(element->Name);
                    EXPECT_EQ(WindowOf(form->Name)->width(), 760);
                    WaitUntil([&] { return Settled(*form); });
                    theVisit(*form, *WindowOf(form->Name));
                }
        }
        EXPECT_EQ(visited, 19);
    }
    bool Settled(const Form &theForm) const
    {
        const auto *heading = qobject_cast<QLabel *>(WidgetOf(Text(theForm.Name) + ".textHBHeading"));
        return heading && heading->text().toStdString() == theForm.Find<Label>("textHBHeading")->Now.Caption;
    }
    template <class Action> static void Each(const Form &theForm, const Window &theWindow, Action theAction)
    {
        for (Element *element : theForm.Elements())
            if (auto *control = dynamic_cast<Control *>(element))
                if (QWidget *widget = theWindow.WidgetOf(*control); widget && widget->isVisible())
                    theAction(*control, *widget);
    }
    // The Tab stops that a screen must have, in the order of reading.
    static std::vector<QWidget *> Stops(const Form &theForm, Window &theWindow)
    {
        std::vector<QWidget *> Result;
        Each(theForm, theWindow, [&](Control &theControl, QWidget &theWidget) {
            const bool isPressed =
                theControl.Design.Click && theControl.Design.As != Role::Repeat && !dynamic_cast<Label *>(&theControl);
            if (auto *browser = dynamic_cast<Browser *>(&theControl))
                Result.push_back(theWindow.PagesOf(*browser).View());
            else if (isPressed || IsFilledIn(theControl) || IsReading(theControl))
                Result.push_back(&theWidget);
            for (QWidget *tool : theWidget.findChildren<QToolButton *>())
                if (tool->isEnabled() && tool->isVisible())
                    Result.push_back(tool);
        });
        return Result;
    }
    static Text FocusAfter(const std::vector<QWidget *> &theStops, Qt::Key theKey)
    {
        Key(theKey);
        // For a page, a child of the view has the focus.
        for (const QWidget *stop : theStops)
            if (const QWidget *focus = QApplication::focusWidget(); stop == focus || stop->isAncestorOf(focus))
                return stop->objectName().toStdString();
        return Focused();
    }
};

TEST_F(Screens, WordsFitAndNothingOverlaps)
{
    const Text longText(300, 'w');
    Losses::Note({"No space left on device", "c:\\site\\a.htm"});
    Walk([&](Form &theForm, Window &theWindow) {
        const auto *menus = theWindow.findChild<QMenuBar *>();
        const int top = menus ? 24 : 0;
        const QSize size = theForm.Design.Sizable || !top ? theWindow.size() : QSize(theWindow.width(), 435);
        EXPECT_EQ(theWindow.size(), size);
        EXPECT_LE(menus ? menus->sizeHint().width() : 0, 600);
        if (menus)
            // On a small display a maximized window is narrower, and either text may fit.
            ExpectNoticeBesideMenus(
                theWindow, *menus, theWindow.width() < 600 ? nullptr : "1 file could not be read or written");
        std::vector<std::pair<Control *, QRect>> places;
        Each(theForm, theWindow, [&](Control &theControl, QWidget &theWidget) {
            SCOPED_TRACE(theControl.Name);
            const auto *label = qobject_cast<QLabel *>(&theWidget);
            const bool hasWords = dynamic_cast<Label *>(&theControl) && label;
            QRect place = theWidget.geometry();
            // The background of the help box extends below the window.
            if (Text(theControl.Name) == "bg_help" || dynamic_cast<Shape *>(&theControl))
                return;
            EXPECT_TRUE(QRect(0, top, size.width(), size.height() - top).contains(place)) << place.width();
            EXPECT_TRUE(place.left() >= 600 || place.right() < 600 || theForm.Design.Sizable);
            if (hasWords && !IsValue(theControl)) {
                place = WordsOf(*label);
                EXPECT_LE(place.height(), label->contentsRect().height()) << label->text().toStdString();
                EXPECT_LE(place.width(), label->contentsRect().width()) << label->text().toStdString();
            } else if (const auto *list = qobject_cast<QListView *>(&theWidget); list && list->sizeHintForRow(0) > 0) {
                EXPECT_EQ(list->viewport()->height() % list->sizeHintForRow(0), 0);
            } else if (hasWords || dynamic_cast<TextBox *>(&theControl)) {
                EXPECT_LE(theWidget.fontMetrics().height(), theWidget.contentsRect().height());
            }
            // A check box extends below its label.
            for (const auto &[other, there] : places)
                if (place.intersects(there) && !(dynamic_cast<CheckBox *>(other) && hasWords))
                    ADD_FAILURE() << "overlaps " << other->Name;
            places.emplace_back(&theControl, place);
        });
        if (theWindow.width() == 760)
            return;
        Each(theForm, theWindow, [&](Control &theControl, QWidget &theWidget) {
            auto *label = dynamic_cast<Label *>(&theControl);
            if (!label || !IsValue(theControl))
                return;
            SCOPED_TRACE(theControl.Name);
            for (const Text &words : {longText, Text("short")}) {
                label->Caption = words;
                const auto &shown = static_cast<QLabel &>(theWidget);
                EXPECT_TRUE(WaitUntil([&] { return shown.text().toStdString() == words; }));
                EXPECT_EQ(shown.toolTip().toStdString(), words == longText ? words : "");
                EXPECT_FALSE(shown.wordWrap());
            }
        });
    });
}

TEST_F(Screens, WhatIsUsedHasANameOfItsOwn)
{
    Walk([&](Form &theForm, Window &theWindow) {
        std::set<QString> names;
        Each(theForm, theWindow, [&](Control &theControl, QWidget &theWidget) {
            const bool isPressed = theControl.Design.Click && !dynamic_cast<Label *>(&theControl);
            if (!isPressed && !IsFilledIn(theControl) && !IsReading(theControl))
                return;
            const QString name = QAccessible::queryAccessibleInterface(&theWidget)->text(QAccessible::Name);
            EXPECT_FALSE(name.isEmpty()) << theControl.Name;
            EXPECT_TRUE(names.insert(name).second) << theControl.Name << ": " << name.toStdString();
        });
    });
}

TEST_F(Screens, TabGoesRoundInTheOrderOfReading)
{
    Walk([&](Form &theForm, Window &theWindow) {
        std::vector<QWidget *> stops = Stops(theForm, theWindow);
        if (stops.empty())
            return;
        const bool hasPages = theForm.Find<Browser>("FinalReportBrowser");
        const bool isBackwards = &theForm == &frmDirectory::Me;
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            if (key == Qt::Key_Backtab && !isBackwards)
                break;
            stops.front()->setFocus(Qt::TabFocusReason);
            for (std::size_t i = 1; i < stops.size(); ++i)
                EXPECT_EQ(FocusAfter(stops, key), stops[i]->objectName().toStdString());
            // In a page, Tab first goes through its links.
            if (!hasPages) {
                EXPECT_EQ(FocusAfter(stops, key), stops.front()->objectName().toStdString());
            }
            std::reverse(stops.begin() + 1, stops.end());
        }
    });
}

TEST_F(Screens, HelpBox)
{
    StartProgram(frmSplash::Me);
    GoTo(frmWelcome::Me);
    Window *window = WindowOf("frmWelcome");
    window->move(window->pos() + QPoint(7, 3));
    const QRect place = window->geometry();
    const int left = window->x();
    for (int times = 0; times < 10; ++times) {
        Key(Qt::Key_F1);
        EXPECT_EQ(window->size(), QSize(760, 435));
        // The window grows to both sides.
        EXPECT_NEAR(window->x(), left - 83.5, 0.5);
        if (times % 2)
            Key(Qt::Key_Escape);
        else
            Click("frmWelcome.hlpWelcome");
        EXPECT_EQ(window->geometry(), place) << times;
        WaitUntil([&] { return false; }, 20);
        EXPECT_EQ(window->geometry(), place) << times;
    }
    // A long text can be scrolled with the keyboard.
    Key(Qt::Key_F1);
    auto *reading = window->findChild<QTextEdit *>("textHBText");
    EXPECT_TRUE(WaitUntil([&] { return reading->verticalScrollBar()->maximum() > 0; }));
    reading->setFocus(Qt::TabFocusReason);
    Key(Qt::Key_PageDown);
    const int middle = reading->verticalScrollBar()->value();
    EXPECT_GT(middle, 0);
    for (int times = 0; times < 10; ++times)
        Key(Qt::Key_PageDown);
    EXPECT_EQ(reading->verticalScrollBar()->value(), reading->verticalScrollBar()->maximum());

    GoTo(frmMenu::Me);
    Click("frmMenu.hlpFAQ");
    const QRect out = WindowOf("frmMenu")->geometry();
    Click("frmMenu.hlpContact");
    EXPECT_EQ(WindowOf("frmMenu")->geometry(), out);
    EXPECT_EQ(Shows("frmMenu.textHBHeading"), "Support / Contact");
    auto *text = qobject_cast<QTextEdit *>(WidgetOf("frmMenu.textHBText"));
    EXPECT_TRUE(WaitUntil([&] { return text->toPlainText().toStdString() == Shows("frmMenu.textHBText"); }));
}

TEST_F(Screens, LeftWithTheHelpBoxOut)
{
    StartProgram(frmSplash::Me);
    GoTo(frmLoadCreate::Me);
    Click("frmLoadCreate.hlpCreate");
    Click("frmLoadCreate.lblCreate1");
    AwaitScreen("frmCreate");
    Window *window = WindowOf("frmCreate");
    Losses::Note({"No space left on device", "c:\\site\\a.htm"});
    TellLosses();
    // It opens at its normal width. The first topic makes it narrower, the second wide again.
    for (const int width : {600, 440, 600}) {
        EXPECT_EQ(window->width(), width);
        EXPECT_EQ(WidgetOf("frmCreate.btnNext")->isVisible(), width == 600);
        EXPECT_FALSE(WidgetOf("frmCreate.textHBText")->isVisible());
        ExpectNoticeBesideMenus(*window, *window->findChild<QMenuBar *>(), "1 file could not be read or written");
        const std::size_t count = Stops(frmCreate::Me, *window).size() + 1;  // the notice is a stop, too
        std::set<Text> reached;
        for (std::size_t i = 0; i < 2 * count; ++i) {
            Key(Qt::Key_Tab);
            EXPECT_LT(QApplication::focusWidget()->x(), width) << Focused();
            reached.insert(Focused());
        }
        EXPECT_EQ(reached.size(), count);
        Click("frmCreate.hlpProjName");
    }
    // A fourth menu leaves room for few words only.
    GoTo(frmKeywords::Me);
    HelpBoxOpen = true;
    Click("frmKeywords.hlpKeywordRemove");
    window = WindowOf("frmKeywords");
    EXPECT_EQ(window->width(), 440);
    ExpectNoticeBesideMenus(*window, *window->findChild<QMenuBar *>(), "1 file");
}

TEST_F(Screens, DroppedFolder)
{
    StartProgram(frmSplash::Me);
    MakeProject();
    GoTo(frmDirectory::Me);
    const QRect picker = WidgetOf("frmDirectory.Dir1")->geometry();
    const QPoint onList = picker.center();
    const auto drop = [&](const char *theForm, const std::filesystem::path &thePath, QPoint thePlace) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(thePath.string()))});
        QWindow *window = WindowOf(theForm)->windowHandle();
        QDragEnterEvent enter(thePlace, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window, &enter);
        // The picker is marked while the folder hovers over the window.
        const auto marks = WindowOf(theForm)->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        const auto isMark = [&](const QLabel *theMark) {
            return theMark->isVisible() && theMark->geometry() == picker;
        };
        EXPECT_EQ(std::any_of(marks.begin(), marks.end(), isMark), enter.isAccepted());
        QDropEvent event(thePlace, Qt::CopyAction, &data, Qt::LeftButton, {});
        if (enter.isAccepted())
            QCoreApplication::sendEvent(window, &event);
        return enter.isAccepted() && event.isAccepted();
    };
    const Text ferns = Paths::ProgramDir() + "\\sample\\ferns";
    EXPECT_TRUE(drop("frmDirectory", program / "sample" / "ferns", onList));
    EXPECT_EQ(static_cast<DirList &>(The("frmDirectory.Dir1")).NowPath, ferns);
    EXPECT_FALSE(drop("frmDirectory", program / "sample" / "index.html", onList));
    EXPECT_FALSE(drop("frmDirectory", program / "no such folder", onList));
    EXPECT_TRUE(drop("frmDirectory", program / "sample", QPoint(400, 150)));
    EXPECT_EQ(static_cast<DirList &>(The("frmDirectory.Dir1")).NowPath, Paths::ProgramDir() + "\\sample");
    GoTo(frmMenu::Me);
    EXPECT_FALSE(drop("frmMenu", program / "sample", onList));
}

TEST_F(Screens, RolesDecideWhatTheKeyboardDoes)
{
    static Text pressed;
    static Form probe{"frmProbe", {.Width = 600, .Height = 435}};
    static MenuItem menu{probe, "menu", {.Caption = "File"}};
    const auto button = [](const char *theName, double theLeft, Role theRole) {
        return Face{.At = {theLeft, 60, 92, 34},
            .AccessibleName = theName,
            .Picture = InProgramDir("imgs\\btnHelp.jpg"),
            .As = theRole,
            .Click = [theName] { pressed += theName; }};
    };
    // Neither the names nor the picture say what the buttons are for.
    static Image a{probe, "a", button("Topic", 0, Role::Help)}, b{probe, "b", button("Onward", 100, Role::Next)},
        c{probe, "c", button("Leave", 200, Role::Back)}, d{probe, "d", button("Do it", 300, Role::Primary)},
        e{probe, "e", button("Again", 400, Role::Repeat)};
    StartProgram(frmSplash::Me);
    GoTo(probe);
    EXPECT_EQ(Focused(), "d");
    Key(Qt::Key_F1);
    Key(Qt::Key_N, Qt::AltModifier);
    Key(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(pressed, "TopicOnwardLeave");
    Text tips;
    for (const Image *image : {&a, &b, &c, &d})
        tips += WindowOf("frmProbe")->WidgetOf(*image)->toolTip().toStdString() + ", ";
    EXPECT_EQ(tips, "Topic, Onward (Alt+N), Leave (Alt+B), Do it, ");
    EXPECT_EQ(WindowOf("frmProbe")->WidgetOf(e)->focusPolicy(), Qt::NoFocus);
}
