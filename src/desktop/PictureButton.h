// A picture that is pressed: hover, press, focus and disabling are painted over the picture.
#pragma once
#include "base/Text.h"
#include <QAbstractButton>

class PictureButton : public QAbstractButton
{
    Q_OBJECT
public:
    explicit PictureButton(QWidget *theParent);
    // Shows the picture at thePath, a path of the program.
    void SetPicture(const Text &thePath);

protected:
    void paintEvent(QPaintEvent *theEvent) override;
    void keyPressEvent(QKeyEvent *theEvent) override;
    void enterEvent(QEnterEvent *theEvent) override;
    void leaveEvent(QEvent *theEvent) override;

private:
    Text picture;
};
