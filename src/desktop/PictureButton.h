// A picture that works as a push button. Hover, press, focus and the disabled state are painted over the picture.
#pragma once
#include "toolkit/Controls.h"
#include <QAbstractButton>

class PictureButton : public QAbstractButton
{
    Q_OBJECT
public:
    // The role and the size decide the outline of what is painted over the picture.
    PictureButton(Role theRole, QWidget *theParent);
    // thePath is a path of the program.
    void SetPicture(const Text &thePath);

protected:
    void paintEvent(QPaintEvent *theEvent) override;
    void keyPressEvent(QKeyEvent *theEvent) override;
    void enterEvent(QEnterEvent *theEvent) override;
    void leaveEvent(QEvent *theEvent) override;

private:
    const Role role;
    Text picture;
};
