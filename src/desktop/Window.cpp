#include "desktop/Window.h"
#include "desktop/Actions.h"
#include "desktop/CheckBoxWidget.h"
#include "desktop/Labels.h"
#include "desktop/LineEdit.h"
#include "desktop/Lists.h"
#include "desktop/MenuBarWidget.h"
#include "desktop/PictureButton.h"
#include "desktop/Pictures.h"
#include "desktop/QtText.h"
#include "desktop/RoundedBox.h"
#include "desktop/Theme.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "toolkit/Gates.h"
#include "toolkit/Pickers.h"
#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <chrono>
#include <cmath>
#include <thread>

static int Whole(double thePixels)
{
    return static_cast<int>(std::lround(thePixels));
}

static auto Has(Role theRole)
{
    return [theRole](const Control &theControl) { return theControl.Design.As == theRole; };
}

Window::Window(Form &theForm, QScreen *theScreen) : TheForm(theForm)
{
    // Before anything is built: how fine the pictures are to be goes by it.
    if (theScreen)
        setScreen(theScreen);
    setObjectName(QString::fromLatin1(theForm.Name));
    if (MenuBarWidget::IsWanted(theForm)) {
        menuBar = new MenuBarWidget(theForm, this);
        bodyTop = MenuBarWidget::barHeight;
    }
    if (!menuBar)
        setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    else if (!theForm.Design.Sizable)
        setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                       Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    setAcceptDrops(DropTarget() != nullptr);
    Build();
    ApplySize();
    BindKeys();
    SetTabOrder();
}

void Window::Build()
{
    for (Element *element : TheForm.Elements())
        if (auto *control = dynamic_cast<Control *>(element); control && !dynamic_cast<MenuItem *>(element))
            Add(*control);
    Update(TheForm);
}

void Window::Add(Control &theControl)
{
    Item item = Make(theControl);
    if (!item.Widget)
        return;
    item.Widget->setObjectName(QString::fromLatin1(theControl.Name));
    if (!theControl.Design.AccessibleName.empty())
        item.Widget->setAccessibleName(ToQString(theControl.Design.AccessibleName));
    // All screens bear the program's name; what tells them apart is their title.
    if (theControl.Design.Style == TextStyle::Title)
        setAccessibleDescription(ToQString(theControl.Design.Caption));
    if (IsMouseOnly(theControl))
        item.Widget->setFocusPolicy(Qt::NoFocus);
    controls.push_back(&theControl);
    UpdateItem(theControl, items[&theControl] = std::move(item));
}

Window::Item Window::Make(Control &theControl)
{
    if (auto *label = dynamic_cast<Label *>(&theControl)) {
        if (label->Design.Style == TextStyle::HelpText) {
            auto *reading = new HelpTextView(*label, this);
            return {reading, [reading] { reading->Update(); }};
        }
        auto *text = new TextLabel(*label, this);
        connect(text, &TextLabel::Pressed, this, [label] {
            if (label->Design.Click)
                Actions::Click(*label);
        });
        return {text, [text] { text->Update(); }};
    }
    if (auto *box = dynamic_cast<TextBox *>(&theControl)) {
        auto *entry = new LineEdit(*box, this);
        connect(entry, &LineEdit::HandlerRan, this, &Window::HandlerRan);
        connect(entry, &LineEdit::EnterUnused, this, [this] { PressFirst(Has(Role::Next)); });
        return {entry, [entry] { entry->Update(); }};
    }
    if (auto *image = dynamic_cast<Image *>(&theControl))
        return MakePicture(*image);
    if (auto *button = dynamic_cast<Button *>(&theControl)) {
        auto *push = new QPushButton(this);
        connect(push, &QPushButton::clicked, this, [button] { Actions::Click(*button); });
        return {push, [push, button] { push->setText(ToQString(button->Now.Caption)); }};
    }
    if (auto *check = dynamic_cast<CheckBox *>(&theControl)) {
        auto *tick = new CheckBoxWidget(*check, this);
        return {tick, [tick] { tick->Update(); }};
    }
    if (auto *list = dynamic_cast<ListBox *>(&theControl)) {
        auto *rows = new ListBoxView(*list, this);
        return {rows, [rows] { rows->Update(); }};
    }
    if (auto *dirs = dynamic_cast<DirList *>(&theControl)) {
        auto *rows = new DirListView(*dirs, this);
        return {rows, [rows] { rows->Update(); }};
    }
    if (auto *drives = dynamic_cast<DriveList *>(&theControl)) {
        auto *box = new DriveComboBox(*drives, this);
        return {box, [box] { box->Update(); }};
    }
    if (dynamic_cast<Frame *>(&theControl))
        return {new RoundedBox(Theme::Ice, this), {}};
    if (auto *shape = dynamic_cast<Shape *>(&theControl))
        return {new RoundedBox(Theme::Navy, items.at(&shape->Inside).Widget), {}};
    if (auto *bar = dynamic_cast<ToolBar *>(&theControl))
        return MakeToolBar(*bar);
    if (dynamic_cast<Browser *>(&theControl)) {
        auto *holder = new QWidget(this);
        (new QHBoxLayout(holder))->setContentsMargins(0, 0, 0, 0);
        return {holder, {}};
    }
    return {};
}

Window::Item Window::MakePicture(Image &theImage)
{
    if (!theImage.Design.Click) {
        auto *picture = new QLabel(this);
        picture->setScaledContents(true);
        return {picture,
            [this, picture, &theImage] { picture->setPixmap(PictureAt(theImage.Now.Picture, devicePixelRatioF())); }};
    }
    auto *button = new PictureButton(this);
    connect(button, &PictureButton::clicked, this, [this, &theImage] { Press(theImage); });
    QString tip = ToQString(theImage.Design.AccessibleName);
    if (theImage.Design.As == Role::Next)
        tip += QStringLiteral(" (Alt+N)");
    else if (theImage.Design.As == Role::Back)
        tip += QStringLiteral(" (Alt+B)");
    button->setToolTip(tip);
    return {button, [button, &theImage] { button->SetPicture(theImage.Now.Picture); }};
}

Window::Item Window::MakeToolBar(ToolBar &theBar)
{
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(12, 8, 8, 4);
    layout->setSpacing(8);
    row->setStyleSheet(Theme::ToolBarStyle());
    for (const ToolButton &tool : theBar.Buttons) {
        auto *button = new QToolButton(row);
        button->setObjectName(QString::fromLatin1(theBar.Name) + ToQString(tool.Key));
        button->setText(ToQString(tool.Caption));
        button->setFont(Theme::FontOf(TextStyle::Body));
        button->setToolTip(ToQString(tool.Tip));
        button->setFocusPolicy(Qt::StrongFocus);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setArrowType(tool.Key == "Back" ? Qt::LeftArrow : Qt::RightArrow);
        const auto press = [&theBar, key = tool.Key] { Actions::Tool(theBar, key); };
        connect(button, &QToolButton::clicked, this, press);
        connect(new QShortcut(tool.Key == "Back" ? QKeySequence::Back : QKeySequence::Forward, this),
            &QShortcut::activated, this, press);
        layout->addWidget(button);
    }
    layout->addStretch();
    return {row, {}};
}

// What lies beyond the right edge isn't there for the keyboard and for screen readers either.
bool Window::IsWithin(const Control &theControl) const
{
    return theControl.Now.At.Left < TheForm.Now.Width;
}

// Labels that are pressed, and pictures that repeat an earlier control.
bool Window::IsMouseOnly(const Control &theControl) const
{
    if (dynamic_cast<const Label *>(&theControl))
        return theControl.Design.As != Role::HelpText;
    return theControl.Design.As == Role::Repeat;
}

// Of buttons that take turns on one spot, such as Pause and Resume, the next one has the keyboard after the last: the
// one beside them might be Cancel.
void Window::PassFocusFrom(const Control &theFormer)
{
    for (const Control *control : controls)
        if (const Place &at = control->Now.At; control != &theFormer && control->Now.Visible &&
                                               at.Left == theFormer.Now.At.Left && at.Top == theFormer.Now.At.Top) {
            items.at(control).Widget->setVisible(true);
            items.at(control).Widget->setFocus(Qt::OtherFocusReason);
        }
}

void Window::UpdateItem(Control &theControl, const Item &theItem)
{
    const Place &at = theControl.Now.At;
    const auto *shape = dynamic_cast<const Shape *>(&theControl);
    theItem.Widget->setGeometry(
        Whole(at.Left), Whole(at.Top) + (shape ? 0 : bodyTop), Whole(at.Width), Whole(at.Height));
    theItem.Widget->setEnabled(theControl.Now.Enabled);
    const bool isBare = dynamic_cast<const Image *>(&theControl) && theControl.Now.Picture.empty();
    const bool isShown = theControl.Now.Visible && !isBare && (shape || IsWithin(theControl));
    if (!isShown && theItem.Widget->hasFocus())
        PassFocusFrom(theControl);
    theItem.Widget->setVisible(isShown);
    if (theItem.Update)
        theItem.Update();
}

void Window::Update(Element &theElement)
{
    if (&theElement == &TheForm) {
        setWindowTitle(ToQString(TheForm.Now.Caption));
        update();
    } else if (auto *item = dynamic_cast<MenuItem *>(&theElement)) {
        menuBar->Update(*item);
    } else if (const auto found = items.find(&theElement); found != items.end()) {
        UpdateItem(static_cast<Control &>(theElement), found->second);
    }
}

void Window::ApplySize()
{
    if (TheForm.Design.Sizable)
        return;
    const QSize size(Whole(TheForm.Now.Width), Whole(TheForm.Now.Height));
    // Rounded down both ways, so that a help box out and in again leaves the window where it was.
    const int left = static_cast<int>(std::floor(TheForm.Now.Left));
    if (size == this->size() && left == x())
        return;
    const auto start = std::chrono::steady_clock::now();
    setFixedSize(size);
    if (menuBar)
        menuBar->setFixedWidth(size.width());
    if (isVisible() && left != x())
        move(left, y());
    const QPointer<QWidget> focus = focusWidget();
    for (Control *control : controls)
        UpdateItem(*control, items.at(control));
    if (focus && focus->isHidden() && helpFrom)
        helpFrom->setFocus();
    if (isVisible()) {
        repaint();
        // A step of the slide; faster, nobody would see it.
        std::this_thread::sleep_until(start + std::chrono::milliseconds(8));
    }
}

void Window::SetInitialFocus(Control *theControl)
{
    const auto focus = [&](const auto &isIt) {
        for (const Element *element : TheForm.Elements())
            if (const auto found = items.find(element); found != items.end())
                if (QWidget *widget = found->second.Widget; isIt(element) && widget->isVisibleTo(this) &&
                                                            widget->isEnabled() &&
                                                            widget->focusPolicy() & Qt::TabFocus) {
                    widget->setFocus(Qt::TabFocusReason);
                    // What a box holds is ready to be typed over.
                    if (auto *entry = qobject_cast<QLineEdit *>(widget))
                        entry->selectAll();
                    return true;
                }
        return false;
    };
    const auto isPicture = [](const Element *element) { return dynamic_cast<const Image *>(element) != nullptr; };
    // A list that answers no double click only shows its rows.
    const auto isFilledIn = [](const Element *element) {
        const auto *list = dynamic_cast<const ListBox *>(element);
        return dynamic_cast<const TextBox *>(element) || dynamic_cast<const DirList *>(element) ||
               dynamic_cast<const CheckBox *>(element) || (list && list->Design.DblClick);
    };
    if (theControl && focus([&](const Element *element) { return element == theControl; }))
        return;
    if (focus(isFilledIn))
        return;
    // A screen that asks for nothing begins with what leads on.
    for (const char *name : {"btnExpand", "btnDoItAlready", "btnDone", "btnPause", "btnNext"})
        if (focus([&](const Element *element) { return Text(element->Name) == name; }))
            return;
    focus(isPicture);
}

Pages &Window::PagesOf(Browser &theBrowser)
{
    Pages *&Result = pages[&theBrowser];
    if (!Result) {
        QWidget *holder = items.at(&theBrowser).Widget;
        Result = Pages::Make(theBrowser, holder);
        holder->layout()->addWidget(Result->View());
        SetTabOrder();
    }
    return *Result;
}

QWidget *Window::WidgetOf(const Element &theElement) const
{
    const auto found = items.find(&theElement);
    return found == items.end() ? nullptr : found->second.Widget;
}

void Window::PressFirst(const std::function<bool(const Control &)> &isIt)
{
    for (Element *element : TheForm.Elements()) {
        auto *control = dynamic_cast<Control *>(element);
        const QWidget *widget = control ? WidgetOf(*control) : nullptr;
        if (widget && isIt(*control) && control->Design.Click && widget->isVisible() && IsReachable(*control)) {
            Press(*control);
            return;
        }
    }
}

Text Window::HelpShown() const
{
    const auto *reading = TheForm.Find<Label>("textHBText");
    return reading && IsWithin(*reading) ? reading->Now.Caption : "";
}

// A help text that has come out beside the screen, as an answer to a press too, would be nothing to who can't see it:
// for screen readers the focus goes there, and back when the box is shut.
void Window::Press(Control &theControl)
{
    const QPointer<Window> me(this);
    const Text before = HelpShown();
    Actions::Click(theControl);
    if (!me || !QAccessible::isActive() || HelpShown().empty() || HelpShown() == before)
        return;
    helpFrom = WidgetOf(theControl);
    // By then it shows its words.
    QTimer::singleShot(0, WidgetOf(*TheForm.Find<Label>("textHBText")), qOverload<>(&QWidget::setFocus));
}

void Window::BindKeys()
{
    const auto bind = [this](const QKeySequence &theKeys, const std::function<bool(const Control &)> &isIt) {
        connect(new QShortcut(theKeys, this), &QShortcut::activated, this, [this, isIt] { PressFirst(isIt); });
    };
    bind(QKeySequence(Qt::ALT | Qt::Key_N), Has(Role::Next));
    bind(QKeySequence(Qt::ALT | Qt::Key_B), Has(Role::Back));
    bind(QKeySequence(Qt::Key_Escape), Has(Role::CloseHelp));
    bind(QKeySequence(Qt::Key_F1), Has(Role::Help));
}

// The order of the elements is the order of reading.
void Window::SetTabOrder()
{
    QWidget *last = menuBar;
    const auto append = [&](QWidget *theWidget) {
        if (last && theWidget)
            QWidget::setTabOrder(last, theWidget);
        last = theWidget;
    };
    for (Element *element : TheForm.Elements()) {
        const auto found = items.find(element);
        if (found == items.end())
            continue;
        if (const auto shown = pages.find(dynamic_cast<Browser *>(element)); shown != pages.end())
            append(shown->second->View());
        else if (dynamic_cast<ToolBar *>(element))
            for (QWidget *button : found->second.Widget->findChildren<QToolButton *>())
                append(button);
        else if (found->second.Widget->focusPolicy() & Qt::TabFocus)
            append(found->second.Widget);
    }
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

// A run isn't ended by closing its window; who tries is shown what ends it.
void Window::RefuseClosing()
{
    QApplication::beep();
    for (const Control *control : controls)
        if (const QWidget *widget = items.at(control).Widget; control->Design.As == Role::Cancel && widget->isVisible())
            QToolTip::showText(widget->mapToGlobal(QPoint(0, 0)), tr("The run goes on. Cancel ends it."));
}

// The program decides; what it closes, it also hides.
void Window::closeEvent(QCloseEvent *theEvent)
{
    theEvent->ignore();
    if (!Actions::Close(TheForm))
        RefuseClosing();
}

// Half pixels that the help box has left in the place stay, as long as it is the same place.
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

DirList *Window::DropTarget() const
{
    for (Element *element : TheForm.Elements())
        if (auto *list = dynamic_cast<DirList *>(element); list && list->Now.Visible)
            return list;
    return nullptr;
}

static Text DroppedDirectory(const QMimeData &theData)
{
    for (const QUrl &url : theData.urls())
        if (url.isLocalFile())
            if (Text path = Paths::FromHost(FromQString(url.toLocalFile())); Files::IsDirectory(path))
                return path;
    return {};
}

void Window::dragEnterEvent(QDragEnterEvent *theEvent)
{
    if (DropTarget() && !DroppedDirectory(*theEvent->mimeData()).empty())
        theEvent->acceptProposedAction();
}

void Window::dropEvent(QDropEvent *theEvent)
{
    const Text path = DroppedDirectory(*theEvent->mimeData());
    DirList *target = DropTarget();
    if (!target || path.empty())
        return;
    for (Element *element : TheForm.Elements())
        if (auto *drives = dynamic_cast<DriveList *>(element); drives && drives->NowDrive != path.substr(0, 2))
            Actions::Pick(*drives, path.substr(0, 2));
    Actions::Go(*target, path);
    theEvent->acceptProposedAction();
}
