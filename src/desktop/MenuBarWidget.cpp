#include "desktop/MenuBarWidget.h"
#include "desktop/Actions.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#include <QAccessible>
#include <QMenu>
#include <QTimer>
#include <algorithm>

bool MenuBarWidget::IsWanted(const Form &theForm)
{
    const auto &elements = theForm.Elements();
    return std::any_of(elements.begin(), elements.end(),
        [](const Element *element) { return dynamic_cast<const MenuItem *>(element) != nullptr; });
}

MenuBarWidget::MenuBarWidget(Form &theForm, QWidget *theParent) : QMenuBar(theParent)
{
    setNativeMenuBar(false);
    setFixedHeight(barHeight);
    setFont(Theme::FontOf(TextStyle::Body));
    setStyleSheet(Theme::MenuStyle());
    for (Element *element : theForm.Elements())
        if (auto *item = dynamic_cast<MenuItem *>(element)) {
            Add(*item);
            Update(*item);
        }
}

void MenuBarWidget::Add(MenuItem &theItem)
{
    QAction *action = nullptr;
    const auto &all = theItem.Owner.Elements();
    const bool isMenu = std::any_of(all.begin(), all.end(), [&](const Element *element) {
        const auto *item = dynamic_cast<const MenuItem *>(element);
        return item && item->Menu == &theItem;
    });
    if (isMenu) {
        auto *menu = new QMenu(this);
        menu->setFont(Theme::FontOf(TextStyle::Body));
        action = addMenu(menu);
    } else if (theItem.Menu) {
        action = actions.at(theItem.Menu)->menu()->addAction(QString());
    } else {
        action = addAction(QString());
    }
    action->setObjectName(QString::fromLatin1(theItem.Name));
    actions[&theItem] = action;
    if (!isMenu)
        connect(action, &QAction::triggered, this, [this, &theItem] {
            const auto choose = [this, &theItem] {
                Actions::Click(theItem);
                // Qt has toggled the check mark; this sets it to what the program has decided.
                Update(theItem);
            };
            // A screen reader waits until the call returns, and the item may open a message box.
            if (QAccessible::isActive())
                QTimer::singleShot(0, this, choose);
            else
                choose();
        });
}

void MenuBarWidget::Update(MenuItem &theItem)
{
    QAction &action = *actions.at(&theItem);
    if (theItem.Now.Caption == "-")
        action.setSeparator(true);
    else
        action.setText(ToQString(theItem.Now.Caption));
    action.setVisible(theItem.Now.Visible);
    action.setEnabled(theItem.Now.Enabled);
    if (theItem.Now.Ticked)
        action.setCheckable(true);
    action.setChecked(theItem.Now.Ticked);
}
