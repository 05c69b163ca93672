#include "desktop/Window.h"
#include "desktop/Actions.h"
#include "desktop/FolderDrop.h"
#include "desktop/Hints.h"
#include "desktop/Keyboard.h"
#include "desktop/MenuBarWidget.h"
#include "desktop/NoticeStrip.h"
#include "desktop/PageTools.h"
#include "desktop/Pictures.h"
#include "desktop/Placement.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#include "toolkit/Gates.h"
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
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
    setAcceptDrops(FolderDrop::PickerOf(theForm) != nullptr);
    for (Element *element : TheForm.Elements())
        if (auto *control = dynamic_cast<Control *>(element); control && !dynamic_cast<MenuItem *>(element))
            Add(*control);
    AddHint();
    Update(TheForm);
    ApplySize();
    // On a small display the window may have to be smaller.
    if (theForm.Design.Sizable && screen()->availableSize().width() > 640)
        setMinimumSize(480, 320);
    if (menuBar)
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
        made.Widget->setFocusPolicy(made.Widget->focusPolicy() & Qt::ClickFocus ? Qt::ClickFocus : Qt::NoFocus);
    controls.push_back(&theControl);
    widgets[&theControl] = std::move(made);
    UpdateControl(theControl);
}

void Window::AddHint()
{
    const QRect place = Hints::PlaceOn(TheForm);
    if (place.isEmpty())
        return;
    hint = new QLabel(this);
    hint->setObjectName(QStringLiteral("hint"));
    hint->setTextFormat(Qt::PlainText);
    hint->setWordWrap(true);
    hint->setFont(Theme::FontOf(TextStyle::Dim));
    hint->setStyleSheet(Theme::HintStyle());
    hint->setAttribute(Qt::WA_TransparentForMouseEvents);
    hint->setGeometry(place.translated(0, bodyTop));
    hint->hide();
    // Later, when the program has heard of the change.
    for (const Control *control : controls) {
        if (auto *line = qobject_cast<QLineEdit *>(WidgetOf(*control)))
            connect(line, &QLineEdit::textChanged, this, &Window::UpdateHint, Qt::QueuedConnection);
        if (auto *list = qobject_cast<QAbstractItemView *>(WidgetOf(*control)))
            connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this, &Window::UpdateHint,
                Qt::QueuedConnection);
    }
    QMetaObject::invokeMethod(this, &Window::UpdateHint, Qt::QueuedConnection);
}

void Window::UpdateHint()
{
    const QString words = Hints::Of(TheForm);
    const QRect place = Hints::PlaceOn(TheForm);
    hint->setText(words);
    hint->resize(place.width(), std::min(place.height(), hint->heightForWidth(place.width())));
    hint->setVisible(!words.isEmpty());
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
    // A picture that works as a button is shown without its file, too.
    const bool isBare =
        dynamic_cast<const Image *>(&theControl) && theControl.Now.Picture.empty() && !theControl.Design.Click;
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
    if (newSize == size() && left + shift == x())
        return;
    const auto start = std::chrono::steady_clock::now();
    const bool isWider = newSize.width() > width();
    setFixedSize(newSize);
    if (menuBar)
        menuBar->setFixedWidth(newSize.width());
    shift = 0;
    if (isVisible() && isWider)
        shift = Placement::Fitted({QPoint(left, y()), newSize}, screen()->availableGeometry()).left() - left;
    if (isVisible() && left + shift != x())
        move(left + shift, y());
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
        PageTools::Add(*Result, *holder);
        connect(Result, &Pages::HistoryChanged, this, [this, view = Result] {
            EnableTool("Back", view->CanGoBack());
            EnableTool("Forward", view->CanGoForward());
        });
        emit Result->HistoryChanged();
        Keyboard::SetTabOrder(*this);
    }
    return *Result;
}

// Only the look and the mouse are concerned: the keys and menus of the program do what they always do.
void Window::EnableTool(const char *theKey, bool isOn)
{
    for (const Control *control : controls)
        if (dynamic_cast<const ToolBar *>(control))
            if (auto *button =
                    WidgetOf(*control)->findChild<QWidget *>(QLatin1String(control->Name) + QLatin1String(theKey)))
                button->setEnabled(isOn);
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
    // The screen is still there: something is missing on it.
    if (me && TheForm.Visible && theControl.Design.As == Role::Next)
        Keyboard::FocusMissing(*this);
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
    else if (menuBar)
        // The title is white.
        painter.fillRect(0, bodyTop, width(), 46, Theme::Pine);
}

// Closing the window does not end a run. A tip beside the Cancel button says what does.
void Window::ExplainRefusal()
{
    QApplication::beep();
    const Control *cancel = Find(Role::Cancel);
    if (const QWidget *button = cancel ? WidgetOf(*cancel) : nullptr; button && button->isVisible())
        // Above the button: Qt places a tip a little below the point that it is given.
        QToolTip::showText(button->mapToGlobal(QPoint(0, -3 * button->height() / 2)),
            tr("The run is still in progress. To end it, click %1.").arg(ToQString(cancel->Design.AccessibleName)));
}

// The program decides whether to close, and then hides the window itself.
void Window::closeEvent(QCloseEvent *theEvent)
{
    theEvent->ignore();
    if (!Actions::Close(TheForm))
        ExplainRefusal();
}

void Window::showEvent(QShowEvent *)
{
    onDisplay.start();
    if (!menuBar)
        QTimer::singleShot(std::chrono::seconds(8), this, &Window::OfferToClose);
}

void Window::OfferToClose()
{
    if (canBeEscaped)
        return;
    canBeEscaped = true;
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { Actions::Close(TheForm); });
    auto *words = new QLabel(tr("Click or press Esc to end the program"), this);
    words->setFont(Theme::FontOf(TextStyle::Splash));
    words->setAlignment(Qt::AlignCenter);
    words->setStyleSheet(Theme::HintStyle());
    words->setGeometry(16, 16, width() - 32, 28);
    words->setAttribute(Qt::WA_TransparentForMouseEvents);
    words->show();
}

// Keeps the half pixels that the help box has left in Left.
void Window::moveEvent(QMoveEvent *)
{
    const QPoint way = pos() - QPoint(static_cast<int>(std::floor(TheForm.Now.Left)) + shift, Rounded(TheForm.Now.Top));
    if (way.isNull())
        return;
    TheForm.Now.Left += way.x();
    TheForm.Now.Top = y();
    // A window manager may move a window right after it has appeared; that doesn't come from the user.
    constexpr int settled = 250;
    if (IsWizard() && onDisplay.isValid() && onDisplay.elapsed() > settled)
        emit Dragged(way);
}

// A click on a label goes to the box beside or below it.
void Window::mousePressEvent(QMouseEvent *theEvent)
{
    if (canBeEscaped) {
        Actions::Close(TheForm);
        return;
    }
    for (const Control *label : controls)
        if (QWidget *words = WidgetOf(*label); dynamic_cast<const Label *>(label) && words->isVisible() &&
                                               words->geometry().contains(theEvent->position().toPoint()))
            Keyboard::FocusBoxOf(*this, *label);
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
    else
        return;
    dropMark = new QLabel(this);
    dropMark->setStyleSheet(Theme::DropStyle());
    dropMark->setAttribute(Qt::WA_TransparentForMouseEvents);
    dropMark->setGeometry(WidgetOf(*FolderDrop::PickerOf(TheForm))->geometry());
    dropMark->show();
}

void Window::dragLeaveEvent(QDragLeaveEvent *)
{
    delete dropMark;
}

void Window::dropEvent(QDropEvent *theEvent)
{
    delete dropMark;
    if (FolderDrop::Take(TheForm, *theEvent->mimeData()))
        theEvent->acceptProposedAction();
}
