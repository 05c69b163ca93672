#include "desktop/Keyboard.h"
#include "toolkit/Pickers.h"
#include <QKeySequence>
#include <QLineEdit>
#include <QShortcut>
#include <algorithm>
#include <cmath>
#include <vector>

namespace Keyboard
{
namespace
{
struct AccessKey {
    Role Pressed;
    QKeySequence Keys;
    bool IsInTip;  // F1 and Esc are known from other programs
};
}  // namespace

static const std::vector<AccessKey> &AccessKeys()
{
    static const std::vector<AccessKey> Result{
        {Role::Next, Qt::ALT | Qt::Key_N, true},
        {Role::Back, Qt::ALT | Qt::Key_B, true},
        {Role::CloseHelp, Qt::Key_Escape, false},
        {Role::Help, Qt::Key_F1, false},
    };
    return Result;
}

void BindAccessKeys(Window &theWindow)
{
    for (const AccessKey &key : AccessKeys())
        QObject::connect(new QShortcut(key.Keys, &theWindow), &QShortcut::activated, &theWindow,
            [&theWindow, role = key.Pressed] { theWindow.PressFirst(role); });
}

QString AccessKeyText(Role theRole)
{
    for (const AccessKey &key : AccessKeys())
        if (key.Pressed == theRole && key.IsInTip)
            return key.Keys.toString(QKeySequence::NativeText);
    return {};
}

bool IsMouseOnly(const Control &theControl)
{
    if (dynamic_cast<const Label *>(&theControl))
        return theControl.Design.As != Role::HelpText;
    return theControl.Design.As == Role::Repeat;
}

// A control that the user fills in. A list without a double click only shows its rows.
static bool IsFilledIn(const Control &theControl)
{
    const auto *list = dynamic_cast<const ListBox *>(&theControl);
    return dynamic_cast<const TextBox *>(&theControl) || dynamic_cast<const DirList *>(&theControl) ||
           dynamic_cast<const CheckBox *>(&theControl) || (list && list->Design.DblClick);
}

static bool TakeFocus(const Window &theWindow, const Control &theControl)
{
    QWidget *widget = theWindow.WidgetOf(theControl);
    if (!widget || !widget->isVisibleTo(&theWindow) || !widget->isEnabled() || !(widget->focusPolicy() & Qt::TabFocus))
        return false;
    widget->setFocus(Qt::TabFocusReason);
    // Typing replaces what the box holds.
    if (auto *line = qobject_cast<QLineEdit *>(widget))
        line->selectAll();
    return true;
}

void SetInitialFocus(Window &theWindow, const Control *theWanted)
{
    const auto &controls = theWindow.Controls();
    const auto focusFirst = [&](const auto &isWanted) {
        return std::any_of(controls.begin(), controls.end(),
            [&](const Control *control) { return isWanted(*control) && TakeFocus(theWindow, *control); });
    };
    if ((theWanted && TakeFocus(theWindow, *theWanted)) || focusFirst(IsFilledIn))
        return;
    // A screen with nothing to fill in starts with the button that leads on, or else with its first choice or topic.
    for (const Role role : {Role::Primary, Role::Next, Role::Tile, Role::Card, Role::Help})
        if (focusFirst([role](const Control &theControl) { return theControl.Design.As == role; }))
            return;
}

void FocusMissing(const Window &theWindow)
{
    const TextBox *wanted = nullptr;
    for (const Control *control : theWindow.Controls())
        if (const auto *box = dynamic_cast<const TextBox *>(control);
            box && box->Now.Visible && (!wanted || (box->Now.Caption.empty() && !wanted->Now.Caption.empty())))
            wanted = box;
    if (wanted)
        TakeFocus(theWindow, *wanted);
}

void FocusBoxOf(const Window &theWindow, const Control &theLabel)
{
    constexpr double near = 12;
    const Place &words = theLabel.Now.At;
    for (const Control *control : theWindow.Controls()) {
        if (!dynamic_cast<const TextBox *>(control) && !dynamic_cast<const ListBox *>(control) &&
            !dynamic_cast<const DirList *>(control))
            continue;
        const Place &box = control->Now.At;
        const double below = box.Top - words.Top - words.Height, beside = box.Left - words.Left - words.Width;
        const bool isBelow = box.Left == words.Left && below >= 0 && below <= near;
        const bool isBeside = beside >= 0 && beside <= near && std::abs(box.Top - words.Top) <= near;
        if ((isBelow || isBeside) && TakeFocus(theWindow, *control))
            return;
    }
}

void SetTabOrder(Window &theWindow)
{
    QWidget *last = theWindow.MenuBar();
    const auto append = [&](QWidget *theWidget) {
        if (!(theWidget->focusPolicy() & Qt::TabFocus))
            return false;
        if (last)
            QWidget::setTabOrder(last, theWidget);
        last = theWidget;
        return true;
    };
    if (QWidget *strip = theWindow.NoticesShown())
        append(strip);
    for (const Control *control : theWindow.Controls()) {
        QWidget *widget = theWindow.WidgetOf(*control);
        // A tool bar and the holder of a page view are no Tab stops themselves, but contain some.
        if (!append(widget))
            for (QWidget *part : widget->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
                append(part);
    }
}
}  // namespace Keyboard
