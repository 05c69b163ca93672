#include "desktop/WidgetFactory.h"
#include "desktop/Actions.h"
#include "desktop/CheckBoxWidget.h"
#include "desktop/Keyboard.h"
#include "desktop/Labels.h"
#include "desktop/LineEdit.h"
#include "desktop/Lists.h"
#include "desktop/PageTools.h"
#include "desktop/PictureButton.h"
#include "desktop/Pictures.h"
#include "desktop/QtText.h"
#include "desktop/RoundedBox.h"
#include "desktop/Theme.h"
#include "desktop/Window.h"
#include "toolkit/Pickers.h"
#include <QBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

static ControlWidget MakeLabel(Label &theLabel, Window &theWindow)
{
    if (theLabel.Design.As == Role::HelpText) {
        auto *text = new HelpTextView(theLabel, &theWindow);
        return {text, [text] { text->Update(); }};
    }
    auto *text = new TextLabel(theLabel, &theWindow);
    QObject::connect(text, &TextLabel::Pressed, &theWindow, [&theLabel] {
        if (theLabel.Design.Click)
            Actions::Click(theLabel);
    });
    return {text, [text] { text->Update(); }};
}

static ControlWidget MakeTextBox(TextBox &theBox, Window &theWindow)
{
    auto *line = new LineEdit(theBox, &theWindow);
    QObject::connect(line, &LineEdit::HandlerRan, &theWindow, &Window::HandlerRan);
    QObject::connect(line, &LineEdit::EnterUnused, &theWindow, [&theWindow] { theWindow.PressFirst(Role::Next); });
    return {line, [line] { line->Update(); }};
}

static ControlWidget MakePicture(Image &theImage, Window &theWindow)
{
    if (!theImage.Design.Click) {
        auto *picture = new QLabel(&theWindow);
        picture->setScaledContents(true);
        return {picture, [&theWindow, picture, &theImage] {
                    picture->setPixmap(PictureAt(theImage.Now.Picture, theWindow.devicePixelRatioF()));
                }};
    }
    auto *button = new PictureButton(theImage.Design.As, &theWindow);
    QObject::connect(button, &PictureButton::clicked, &theWindow, [&] { theWindow.Press(theImage); });
    const QString name = ToQString(theImage.Design.AccessibleName);
    const QString key = Keyboard::AccessKeyText(theImage.Design.As);
    button->setToolTip(key.isEmpty() ? name : name + QStringLiteral(" (%1)").arg(key));
    return {button, [button, &theImage] { button->SetPicture(theImage.Now.Picture); }};
}

static ControlWidget MakeButton(Button &theButton, Window &theWindow)
{
    auto *button = new QPushButton(&theWindow);
    QObject::connect(button, &QPushButton::clicked, &theWindow, [&theButton] { Actions::Click(theButton); });
    return {button, [button, &theButton] { button->setText(ToQString(theButton.Now.Caption)); }};
}

namespace
{
// What a tool-bar button shows beside its caption, and its shortcut.
struct ToolLook {
    const char *Key;
    Qt::ArrowType Arrow;
    QKeySequence::StandardKey Shortcut;
};
constexpr ToolLook toolLooks[] = {
    {"Back", Qt::LeftArrow, QKeySequence::Back},
    {"Forward", Qt::RightArrow, QKeySequence::Forward},
};
}  // namespace

static ControlWidget MakeToolBar(ToolBar &theBar, Window &theWindow)
{
    auto *row = new QWidget(&theWindow);
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
        const auto press = [&theBar, key = tool.Key] { Actions::Tool(theBar, key); };
        QObject::connect(button, &QToolButton::clicked, &theWindow, press);
        for (const ToolLook &look : toolLooks)
            if (tool.Key == look.Key) {
                button->setArrowType(look.Arrow);
                button->setToolTip(ToQString(tool.Tip) + QStringLiteral(" (") +
                                   QKeySequence(look.Shortcut).toString(QKeySequence::NativeText) +
                                   QStringLiteral(")\n\n") + PageTools::KeysText());
                QObject::connect(new QShortcut(look.Shortcut, &theWindow), &QShortcut::activated, &theWindow, press);
            }
        layout->addWidget(button);
    }
    layout->addStretch();
    return {row, {}};
}

// A widget of a class that shows the control by itself.
template <class Widget, class Kind> static ControlWidget MakeOwn(Kind &theControl, Window &theWindow)
{
    auto *widget = new Widget(theControl, &theWindow);
    return {widget, [widget] { widget->Update(); }};
}

ControlWidget MakeWidget(Control &theControl, Window &theWindow)
{
    if (auto *label = dynamic_cast<Label *>(&theControl))
        return MakeLabel(*label, theWindow);
    if (auto *box = dynamic_cast<TextBox *>(&theControl))
        return MakeTextBox(*box, theWindow);
    if (auto *image = dynamic_cast<Image *>(&theControl))
        return MakePicture(*image, theWindow);
    if (auto *button = dynamic_cast<Button *>(&theControl))
        return MakeButton(*button, theWindow);
    if (auto *bar = dynamic_cast<ToolBar *>(&theControl))
        return MakeToolBar(*bar, theWindow);
    if (auto *box = dynamic_cast<CheckBox *>(&theControl)) {
        auto *widget = new CheckBoxWidget(*box, &theWindow);
        QObject::connect(
            widget, &CheckBoxWidget::EnterUnused, &theWindow, [&theWindow] { theWindow.PressFirst(Role::Next); });
        return {widget, [widget] { widget->Update(); }};
    }
    if (auto *list = dynamic_cast<ListBox *>(&theControl))
        return MakeOwn<ListBoxView>(*list, theWindow);
    if (auto *list = dynamic_cast<DirList *>(&theControl))
        return MakeOwn<DirListView>(*list, theWindow);
    if (auto *list = dynamic_cast<DriveList *>(&theControl))
        return MakeOwn<DriveComboBox>(*list, theWindow);
    if (dynamic_cast<Frame *>(&theControl))
        return {new RoundedBox(Theme::Ice, &theWindow), {}};
    if (auto *shape = dynamic_cast<Shape *>(&theControl))
        return {new RoundedBox(Theme::Navy, theWindow.WidgetOf(shape->Inside)), {}};
    if (dynamic_cast<Browser *>(&theControl)) {
        // Holds the page view, which the window makes later.
        auto *holder = new QWidget(&theWindow);
        auto *rows = new QVBoxLayout(holder);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->setSpacing(0);
        return {holder, {}};
    }
    return {};
}
