// The window of a screen: a widget for each of its controls, kept in step with what the controls hold now.
#pragma once
#include "desktop/Pages.h"
#include "toolkit/Controls.h"
#include "toolkit/Pickers.h"
#include <QPointer>
#include <QWidget>
#include <functional>
#include <unordered_map>

class MenuBarWidget;

class Window : public QWidget
{
    Q_OBJECT
public:
    // Opens on theScreen; null leaves that to the host.
    Window(Form &theForm, QScreen *theScreen);

    Form &TheForm;
    // Shows what an element, the screen itself too, holds now.
    void Update(Element &theElement);
    // Takes the screen's size and place at once and paints it: the help box slides by that.
    void ApplySize();
    // Puts the keyboard's focus on the control, or where a user would begin.
    void SetInitialFocus(Control *theControl);
    // The page view of a browser, made when it is first asked for.
    Pages &PagesOf(Browser &theBrowser);
    QWidget *WidgetOf(const Element &theElement) const;

signals:
    void HandlerRan();

protected:
    void paintEvent(QPaintEvent *theEvent) override;
    void closeEvent(QCloseEvent *theEvent) override;
    void moveEvent(QMoveEvent *theEvent) override;
    void resizeEvent(QResizeEvent *theEvent) override;
    void dragEnterEvent(QDragEnterEvent *theEvent) override;
    void dropEvent(QDropEvent *theEvent) override;

private:
    struct Item {
        QWidget *Widget = nullptr;
        std::function<void()> Update;  // what is more than place, visibility and enabling
    };
    void Build();
    void Add(Control &theControl);
    Item Make(Control &theControl);
    Item MakePicture(Image &theImage);
    Item MakeToolBar(ToolBar &theBar);
    void UpdateItem(Control &theControl, const Item &theItem);
    void PassFocusFrom(const Control &theFormer);
    void RefuseClosing();
    void BindKeys();
    void SetTabOrder();
    bool IsWithin(const Control &theControl) const;
    bool IsMouseOnly(const Control &theControl) const;
    Text HelpShown() const;
    void Press(Control &theControl);
    void PressFirst(const std::function<bool(const Control &)> &isIt);
    DirList *DropTarget() const;

    MenuBarWidget *menuBar = nullptr;
    int bodyTop = 0;
    std::unordered_map<const Element *, Item> items;
    std::vector<Control *> controls;  // those with an item
    std::unordered_map<const Browser *, Pages *> pages;
    QPointer<QWidget> helpFrom;  // what a help text came from
};
