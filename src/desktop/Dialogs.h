// What the program asks the user in windows of its own: message boxes and the file dialog.
#pragma once
#include "disk/Losses.h"
#include <QString>
#include <QTemporaryDir>
#include <map>
#include <memory>
#include <set>

class QWidget;

class Dialogs
{
public:
    // Shows a message of the program above theParent, unless the user has silenced it.
    int MsgBox(QWidget *theParent, const Text &thePrompt, int theFlags, const Text &theTitle);
    // Asks for a file that the program is to read. Returns a path of the program, empty when the user cancels.
    Text OpenFile(QWidget *theParent, const Text &theFilter);
    // Explains that nothing could be written where a link leads away, and what to do; once for each link.
    void ExplainLink(QWidget *theParent, const Losses::Loss &theLoss);
    // Whether theLoss has such a link for its reason.
    static bool IsByLink(const Losses::Loss &theLoss);

private:
    QString WithWindowsLineEnds(QWidget *theParent, const QString &theFile);

    unsigned long action = 0;  // the action to which boxesShown belongs
    // How often each message was shown, whatever files it named; -1 when the user has silenced it.
    std::map<Text, int> boxesShown;
    QString lastDirectory;
    std::unique_ptr<QTemporaryDir> copies;
    std::set<Text> linksExplained;
};
