#include "desktop/Window.h"
#include "desktop/Actions.h"
#include "desktop/FolderDrop.h"
#include "desktop/Keyboard.h"
#include "desktop/MenuBarWidget.h"
#include "desktop/NoticeStrip.h"
#include "desktop/Pictures.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#include "toolkit/Gates.h"
#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QPainter>
#include <QTimer>
#include <QToolTip>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

static int Rounded(double thePixels)
{
    return static_cast<int>(std::lround(thePixels));
}

Window::Window(Form &theForm, QScreen *theScreen, Notices &theNotices) : TheForm(theForm)
{
    // Before anything else, because the resolution of the pictures depends on it.
    if (theScreen)
        setScreen(theScreen);
    setObjectName(QString::fromLatin1(theForm.Name));
    if (MenuBarWidget::IsWanted(theForm)) {
        menuBar = new MenuBarWidget(theForm, this);
        bodyTop = MenuBarWidget::barHeight;
        strip = new NoticeStrip(theNotices, *menuBar);
    }
    if (!menuBar)
        setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    else if (!theForm.Design.Sizable)
        setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                       Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    setAcceptDrops(FolderDrop::IsWanted(theForm));
    for (Element *element : TheForm.Elements())
        if (auto *control = dynamic_cast<Control *>(element); control && !dynamic_cast<MenuItem *>(element))
            Add(*control);
    Update(TheForm);
    ApplySize();
    Keyboard::BindAccessKeys(*this);
    Keyboard::SetTabOrder(*this);
}

void Window::Add(Control &theControl)
{
    ControlWidget made = MakeWidget(theControl, *this);
    if (!made.Widget)
        return;
    made.Widget->setObjectName(QString::fromLatin1(theControl.Name));
    if (!theControl.Design.AccessibleName.empty())
        made.Widget->setAccessibleName(ToQString(theControl.Design.AccessibleName));
    // All windows bear the program's name; their titles tell them apart.
    if (theControl.Design.Style == TextStyle::Title)
        setAccessibleDescription(ToQString(theControl.Design.Caption));
    if (Keyboard::IsMouseOnly(theControl))
        made.Widget->setFocusPolicy(Qt::NoFocus);
    controls.push_back(&theControl);
    widgets[&theControl] = std::move(made);
    UpdateControl(theControl);
}

// A control beyond the right edge, as the help box is while it is in, must not exist for the keyboard or for screen
// readers either.
bool Window::IsWithin(const Control &theControl) const
{
    return theControl.Now.At.Left < TheForm.Now.Width;
}

// Two buttons may take turns in one place, such as Pause and Resume. The focus then passes to the one that appears:
// otherwise it would move to the next button, which might be Cancel.
void Window::PassFocusFrom(const Control &theFormer)
{
    for (const Control *control : controls)
        if (const Place &at = control->Now.At; control != &theFormer && control->Now.Visible &&
                                               at.Left == theFormer.Now.At.Left && at.Top == theFormer.Now.At.Top) {
            WidgetOf(*control)->setVisible(true);
            WidgetOf(*control)->setFocus(Qt::OtherFocusReason);
        }
}

void Window::UpdateControl(Control &theControl)
{
    const ControlWidget &shown = widgets.at(&theControl);
    const Place &at = theControl.Now.At;
    const auto *shape = dynamic_cast<const Shape *>(&theControl);
    shown.Widget->setGeometry(
        Rounded(at.Left), Rounded(at.Top) + (shape ? 0 : bodyTop), Rounded(at.Width), Rounded(at.Height));
    shown.Widget->setEnabled(theControl.Now.Enabled);
    const bool isBare = dynamic_cast<const Image *>(&theControl) && theControl.Now.Picture.empty();
    const bool isShown = theControl.Now.Visible && !isBare && (shape || IsWithin(theControl));
    if (!isShown && shown.Widget->hasFocus())
        PassFocusFrom(theControl);
    shown.Widget->setVisible(isShown);
    if (shown.Update)
        shown.Update();
}

void Window::Update(Element &theElement)
{
    if (&theElement == &TheForm) {
        setWindowTitle(ToQString(TheForm.Now.Caption));
        update();
    } else if (auto *item = dynamic_cast<MenuItem *>(&theElement)) {
        menuBar->Update(*item);
    } else if (widgets.contains(&theElement)) {
        UpdateControl(static_cast<Control &>(theElement));
    }
}

void Window::ApplySize()
{
    if (TheForm.Design.Sizable)
        return;
    const QSize newSize(Rounded(TheForm.Now.Width), Rounded(TheForm.Now.Height));
    // Rounded down in both directions, so that the window is where it was once the help box has been out and in again.
    const int left = static_cast<int>(std::floor(TheForm.Now.Left));
    if (newSize == size() && left == x())
        return;
    const auto start = std::chrono::steady_clock::now();
    setFixedSize(newSize);
    if (menuBar)
        menuBar->setFixedWidth(newSize.width());
    if (isVisible() && left != x())
        move(left, y());
    const QPointer<QWidget> focus = focusWidget();
    for (Control *control : controls)
        UpdateControl(*control);
    if (focus && focus->isHidden() && helpOpener)
        helpOpener->setFocus();
    if (isVisible()) {
        repaint();
        // The duration of one step of the slide; at full speed nobody would see it.
        std::this_thread::sleep_until(start + std::chrono::milliseconds(8));
    }
}

Pages &Window::PagesOf(Browser &theBrowser)
{
    Pages *&Result = pages[&theBrowser];
    if (!Result) {
        QWidget *holder = WidgetOf(theBrowser);
        Result = Pages::Make(theBrowser, holder);
        holder->layout()->addWidget(Result->View());
        Keyboard::SetTabOrder(*this);
    }
    return *Result;
}

QWidget *Window::WidgetOf(const Element &theElement) const
{
    const auto found = widgets.find(&theElement);
    return found == widgets.end() ? nullptr : found->second.Widget;
}

const Control *Window::Find(Role theRole) const
{
    const auto found = std::find_if(
        controls.begin(), controls.end(), [theRole](const Control *control) { return control->Design.As == theRole; });
    return found == controls.end() ? nullptr : *found;
}

QWidget *Window::MenuBar() const
{
    return menuBar;
}

QWidget *Window::NoticesShown() const
{
    return strip;
}

void Window::PressFirst(Role theRole)
{
    for (Control *control : controls)
        if (control->Design.As == theRole && control->Design.Click && WidgetOf(*control)->isVisible() &&
            IsReachable(*control)) {
            Press(*control);
            return;
        }
}

Text Window::HelpShown() const
{
    const Control *text = Find(Role::HelpText);
    return text && IsWithin(*text) ? text->Now.Caption : "";
}

void Window::Press(Control &theControl)
{
    const QPointer<Window> me(this);
    const Text before = HelpShown();
    Actions::Click(theControl);
    if (!me || !QAccessible::isActive() || HelpShown().empty() || HelpShown() == before)
        return;
    // Users who cannot see the help text would not notice it, also where it answers a click on Next.
    helpOpener = WidgetOf(theControl);
    // Later, once the widget shows the new text.
    QTimer::singleShot(0, WidgetOf(*Find(Role::HelpText)), qOverload<>(&QWidget::setFocus));
}

void Window::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::Paper);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QPixmap &picture = PictureAt(TheForm.Now.Picture, devicePixelRatioF());
    if (!picture.isNull())
        painter.drawPixmap(QPoint(0, bodyTop), picture);
}

// Closing the window does not end a run. A tip beside the Cancel button says what does.
void Window::ExplainRefusal()
{
    QApplication::beep();
    const Control *cancel = Find(Role::Cancel);
    if (const QWidget *button = cancel ? WidgetOf(*cancel) : nullptr; button && button->isVisible())
        QToolTip::showText(button->mapToGlobal(QPoint(0, 0)),
            tr("The run is still in progress. To end it, click %1.").arg(ToQString(cancel->Design.AccessibleName)));
}

// The program decides whether to close, and then hides the window itself.
void Window::closeEvent(QCloseEvent *theEvent)
{
    theEvent->ignore();
    if (!Actions::Close(TheForm))
        ExplainRefusal();
}

// Keeps the half pixels that the help box has left in Left, unless the window has really moved.
void Window::moveEvent(QMoveEvent *)
{
    if (x() != static_cast<int>(std::floor(TheForm.Now.Left)))
        TheForm.Now.Left = x();
    TheForm.Now.Top = y();
}

void Window::resizeEvent(QResizeEvent *theEvent)
{
    if (!TheForm.Design.Sizable)
        return;
    menuBar->setFixedWidth(theEvent->size().width());
    UserResize(TheForm, theEvent->size().width(), theEvent->size().height());
}

void Window::dragEnterEvent(QDragEnterEvent *theEvent)
{
    if (FolderDrop::CanTake(TheForm, *theEvent->mimeData()))
        theEvent->acceptProposedAction();
}

void Window::dropEvent(QDropEvent *theEvent)
{
    if (FolderDrop::Take(TheForm, *theEvent->mimeData()))
        theEvent->acceptProposedAction();
}
