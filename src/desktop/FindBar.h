// A bar above a page in which the user enters a text to find there.
#pragma once
#include <QLabel>
#include <QLineEdit>
#include <QWidget>

class FindBar final : public QWidget
{
    Q_OBJECT
public:
    explicit FindBar(QWidget *theParent);
    // Shows the bar with the text selected, ready to be replaced.
    void Open();
    void Close();
    QString Wanted() const { return line->text(); }
    // Shows which of how many places is marked; nothing when thePlaces is below 0.
    void ShowPlace(int thePlace, int thePlaces);

signals:
    // The page is to mark the next place, or the one before, of Wanted; when that is empty, none.
    void Find(bool isBackward);
    void Closed();

protected:
    bool event(QEvent *theEvent) override;
    void keyPressEvent(QKeyEvent *theEvent) override;

private:
    QLineEdit *line;
    QLabel *count;
};
