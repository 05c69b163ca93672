// Knows whether the user has just clicked in a view, or pressed a key that clicks. Scripts cannot pretend that.
#pragma once
#include <QElapsedTimer>
#include <QWidget>

class ClickWatch final : public QObject
{
public:
    explicit ClickWatch(QWidget &theView);
    bool HasClick() const;
    // One click leads to one place only.
    void UseUp() { last.invalidate(); }

protected:
    bool eventFilter(QObject *theObject, QEvent *theEvent) override;

private:
    QWidget &view;
    QElapsedTimer last;
};
