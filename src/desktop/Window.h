// The window of a screen: one widget for each of its controls, which shows what the control holds now.
#pragma once
#include "desktop/Notices.h"
#include "desktop/Pages.h"
#include "desktop/WidgetFactory.h"
#include <QElapsedTimer>
#include <QPointer>
#include <QWidget>
#include <unordered_map>

class MenuBarWidget;
class NoticeStrip;
class QLabel;

class Window : public QWidget
{
    Q_OBJECT
public:
    // Opens on theScreen; when it is null, the system chooses the screen. A window with a menu bar shows theNotices.
    Window(Form &theForm, QScreen *theScreen, Notices &theNotices);

    Form &TheForm;
    // Shows what an element, or the screen itself, holds now.
    void Update(Element &theElement);
    // Takes over the size and place of the form and paints at once; the help box slides in steps of this.
    void ApplySize();
    // The page view of a browser; the first call makes it.
    Pages &PagesOf(Browser &theBrowser);
    // The widget of a control; null when it has none.
    QWidget *WidgetOf(const Element &theElement) const;
    // The controls that have a widget, in the order of their declaration.
    const std::vector<Control *> &Controls() const { return controls; }
    // The first control with a role; null when there is none.
    const Control *Find(Role theRole) const;
    // True for the screens of the wizard, false for the start screen and the report.
    bool IsWizard() const { return menuBar && !TheForm.Design.Sizable; }
    // Null when the screen has no menu.
    QWidget *MenuBar() const;
    // Null when the screen has no menu; hidden while there is nothing to say.
    QWidget *NoticesShown() const;
    // Clicks a control. For users of screen readers the focus follows to the help text if that comes out.
    void Press(Control &theControl);
    // Clicks the first control with that role that can be clicked now.
    void PressFirst(Role theRole);
    // From now on a click or Esc closes this window. Called when the start screen stays for long.
    void OfferToClose();

signals:
    // A handler of the program has run: what it changed must be shown before the key takes effect.
    void HandlerRan();
    // The user has moved the window by theWay.
    void Dragged(QPoint theWay);

protected:
    void paintEvent(QPaintEvent *theEvent) override;
    void closeEvent(QCloseEvent *theEvent) override;
    void showEvent(QShowEvent *theEvent) override;
    void mousePressEvent(QMouseEvent *theEvent) override;
    void moveEvent(QMoveEvent *theEvent) override;
    void resizeEvent(QResizeEvent *theEvent) override;
    void dragEnterEvent(QDragEnterEvent *theEvent) override;
    void dragLeaveEvent(QDragLeaveEvent *theEvent) override;
    void dropEvent(QDropEvent *theEvent) override;

private:
    void Add(Control &theControl);
    void UpdateControl(Control &theControl);
    void PassFocusFrom(const Control &theFormer);
    void AddHint();
    void UpdateHint();
    void ExplainRefusal();
    bool IsWithin(const Control &theControl) const;
    Text HelpShown() const;
    void EnableTool(const char *theKey, bool isOn);

    MenuBarWidget *menuBar = nullptr;
    NoticeStrip *strip = nullptr;
    int bodyTop = 0;
    int shift = 0;  // how far the window stands beside TheForm's place, so that the open help box can be seen
    QElapsedTimer onDisplay;
    std::unordered_map<const Element *, ControlWidget> widgets;
    std::vector<Control *> controls;
    std::unordered_map<const Browser *, Pages *> pages;
    QLabel *hint = nullptr;     // what Hints say of this screen
    QPointer<QLabel> dropMark;  // lies over the picker while a folder is dragged over the window
    bool canBeEscaped = false;
    QPointer<QWidget> helpOpener;  // what opened the help text that has the focus
};
