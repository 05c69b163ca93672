// Runs the whole program in real windows, in a program directory of its own with all the shipped data.
#pragma once
#include "HostPlaces.h"
#include "core/AppVars.h"
#include "core/frmSplash.h"
#include "desktop/Application.h"
#include "desktop/Desktop.h"
#include "disk/DirectoryCache.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "disk/PendingWrites.h"
#include "toolkit/Services.h"
#include <QAbstractButton>
#include <QApplication>
#include <QFontDatabase>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <random>

class WindowTest : public testing::Test
{
public:
    const std::filesystem::path program =
        std::filesystem::temp_directory_path() / ("ferncastle window " + std::to_string(std::random_device{}()));
    std::unique_ptr<Desktop> desktop;
    int code = -1;

    WindowTest()
    {
        std::filesystem::copy(FERNCASTLE_DATA_DIR, program, std::filesystem::copy_options::recursive);
        Paths::SetProgramDir(HostForm(program));
        DirectoryCache::SetRecheckInterval(0);
        Application::ApplyStyle();
        desktop = std::make_unique<Desktop>();
        SetPresentation(desktop.get());
        DefaultBoxTitle = AppTitle = "Ferncastle";
        FormWidth = 600;
        FormHeight = 435;
    }
    ~WindowTest() override
    {
        desktop.reset();
        PendingWrites::Flush();
        // On Windows a file that is in use can't be removed.
        QFontDatabase::removeAllApplicationFonts();
        std::filesystem::remove_all(program);
    }

    // Runs the program from start to end. theUser plays the user.
    void RunProgram(const std::function<void()> &theUser, Form &theFirstForm = frmSplash::Me)
    {
        QTimer::singleShot(0, [=] {
            theUser();
            // After a failure the user's further steps would only wait in vain.
            if (HasFailure())
                QCoreApplication::exit(99);
        });
        code = desktop->Run(theFirstForm);
    }

    // Makes a project for the sample site, as the wizard would.
    void MakeProject() const
    {
        ProjectNumber = "0001";
        ProjectMode = "load";
        ProjectName = "Fern and Friends";
        DomainName = "fernandfriends.example";
        // Makes the new names repeatable. They contain keywords, because bare numbers would soon collide.
        SetClock(1);
        KeywordsPerFilename = 3;
        LocalSiteDir = Paths::ProgramDir() + "\\sample\\";
        std::filesystem::create_directories(program / "0001");
        std::filesystem::create_directories(program / "0001_store");
        const auto write = [&](const char *theEnd, const Text &theText) {
            std::ofstream(program / "0001_store" / (ProjectNumber + theEnd), std::ios::binary) << theText;
        };
        write(".name", ProjectName + "[]");
        write(".dom", DomainName + "[]");
        write(".dir", LocalSiteDir + "[]");
        write(".key", "moss\r\nfern\r\nshade\r\nfronds\r\n");
    }
    // Shows a screen directly and closes the others.
    void GoTo(Form &theForm) const
    {
        // A window gets the focus only if the application is active.
        ASSERT_TRUE(WaitUntil([] { return QGuiApplication::applicationState() == Qt::ApplicationActive; }));
        HelpBoxOpen = false;
        theForm.Show();
        for (Form *form : Form::All())
            if (form != &theForm && form->Visible)
                form->Unload();
        AwaitScreen(theForm.Name);
    }
    static Form &TheForm(const char *theName)
    {
        for (Form *form : Form::All())
            if (Text(form->Name) == theName)
                return *form;
        throw std::invalid_argument(theName);
    }
    Window *WindowOf(const char *theForm) const { return desktop->WindowOf(TheForm(theForm)); }
    // "frmMenu.btnFAQ", as the player names controls.
    static Control &The(const Text &theName)
    {
        const std::size_t point = theName.find('.');
        return *TheForm(theName.substr(0, point).c_str()).Find<Control>(theName.substr(point + 1));
    }
    QWidget *WidgetOf(const Text &theName) const
    {
        const Window *window = desktop->WindowOf(The(theName).Owner);
        return window ? window->WidgetOf(The(theName)) : nullptr;
    }
    static Text Shows(const Text &theName) { return The(theName).Now.Caption; }

    static bool WaitUntil(const std::function<bool()> &isSo, int theMilliseconds = 20000)
    {
        return QTest::qWaitFor(isSo, theMilliseconds);
    }
    void AwaitScreen(const char *theForm) const
    {
        ASSERT_TRUE(WaitUntil([&] {
            const Window *window = WindowOf(theForm);
            return window && window->isVisible() && window == QApplication::activeWindow();
        })) << theForm;
    }
    // Clicks with the mouse; fails when another widget covers the control.
    void Click(const Text &theName) const
    {
        QWidget *widget = WidgetOf(theName);
        ASSERT_TRUE(widget && widget->isVisible() && widget->isEnabled()) << theName;
        const QPoint middle = widget->rect().center();
        ASSERT_EQ(widget->window()->childAt(widget->mapTo(widget->window(), middle)), widget)
            << theName << " is covered";
        QTest::mouseClick(widget, Qt::LeftButton, {}, middle);
    }
    // Key presses a key, and Type types a text, in the widget that has the focus.
    static void Key(Qt::Key theKey, Qt::KeyboardModifiers theModifiers = {})
    {
        QWidget *focus = QApplication::focusWidget() ? QApplication::focusWidget() : QApplication::activeWindow();
        ASSERT_TRUE(focus);
        QTest::keyClick(focus, theKey, theModifiers);
    }
    static void Type(const char *theText)
    {
        ASSERT_TRUE(QApplication::focusWidget());
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(theText));
    }
    // The name of the control that has the focus.
    static Text Focused()
    {
        const QWidget *focus = QApplication::focusWidget();
        return focus ? focus->objectName().toStdString() : "(none)";
    }
    // Runs theAction as soon as isSo is true, also from within a nested event loop.
    template <class Condition, class Action> static void When(Condition isSo, Action theAction)
    {
        auto *look = new QTimer(qApp);
        look->callOnTimeout([=] {
            if (!isSo())
                return;
            look->deleteLater();
            look->stop();
            theAction();
        });
        look->start(5);
    }
    // Runs theAction on the next modal box; boxSaid keeps its text.
    template <class Action> void InNextBox(Action theAction)
    {
        const auto isThere = [] {
            const QWidget *box = QApplication::activeModalWidget();
            return box && box->isVisible() && box == QApplication::activeWindow();
        };
        When(isThere, [this, theAction] {
            QWidget &box = *QApplication::activeModalWidget();
            boxSaid = box.property("text").toString().toStdString();
            theAction(box);
        });
    }
    void AnswerNextBox(const char *theButton)
    {
        InNextBox([theButton](QWidget &theBox) {
            for (auto *button : theBox.findChildren<QAbstractButton *>())
                if (button->text().remove('&') == QLatin1String(theButton))
                    return QTest::mouseClick(button, Qt::LeftButton);
            ADD_FAILURE() << "the box has no button " << theButton;
        });
    }
    Text boxSaid;
};
