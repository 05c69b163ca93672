#include "player/Script.h"
#include "core/TextOps.h"
#include "toolkit/Pickers.h"

static Text Trimmed(const Text &theText)
{
    const std::size_t from = theText.find_first_not_of(" \t\r");
    return from == Text::npos ? Text() : theText.substr(from, theText.find_last_not_of(" \t\r") - from + 1);
}

// Removes the first word from theRest and returns it.
static Text TakeWord(Text &theRest)
{
    const std::size_t end = std::min(theRest.find_first_of(" \t"), theRest.size());
    const Text Result = theRest.substr(0, end);
    theRest = Trimmed(theRest.substr(end));
    return Result;
}

std::vector<Action> ReadScript(std::istream &theInput)
{
    // What goes wrong while a line is read must not look like the end of the script.
    theInput.exceptions(std::ios::badbit);
    std::vector<Action> Result;
    Text line;
    for (int number = 1; std::getline(theInput, line); ++number) {
        if (Trimmed(line).starts_with('#'))
            continue;
        Text rest = Trimmed(line.substr(0, line.find("  #")));
        if (rest.empty())
            continue;
        Action action{number, TakeWord(rest), {}, {}};
        action.Target = TakeWord(rest);
        action.Rest = rest;
        Result.push_back(action);
    }
    return Result;
}

Form *FindForm(const Text &theName)
{
    for (Form *form : Form::All())
        if (theName == form->Name)
            return form;
    return nullptr;
}

Element *FindElement(const Text &theName)
{
    const std::size_t point = theName.find('.');
    Form *const form = FindForm(theName.substr(0, point));
    return !form || point == Text::npos ? form : form->Find(theName.substr(point + 1));
}

static Text JoinedRows(const std::vector<Text> &theRows)
{
    Text Result;
    for (const Text &row : theRows)
        Result += (&row == &theRows.front() ? "" : " | ") + row;
    return Result;
}

Text ValueOf(const Element &theElement)
{
    if (const auto *form = dynamic_cast<const Form *>(&theElement))
        return form->Now.Caption;
    if (const auto *list = dynamic_cast<const ListBox *>(&theElement))
        return JoinedRows(list->NowRows);
    if (const auto *list = dynamic_cast<const DirList *>(&theElement))
        return list->NowPath;
    if (const auto *list = dynamic_cast<const DriveList *>(&theElement))
        return list->NowDrive;
    if (const auto *timer = dynamic_cast<const Timer *>(&theElement))
        return timer->Now.Enabled ? "on" : "off";
    const auto *control = dynamic_cast<const Control *>(&theElement);
    if (!control)
        return {};
    if (dynamic_cast<const CheckBox *>(control) || dynamic_cast<const MenuItem *>(control))
        return control->Now.Ticked ? "ticked" : "unticked";
    if (dynamic_cast<const Image *>(control))
        return control->Now.Picture.substr(control->Now.Picture.rfind('\\') + 1);
    return control->Now.Caption;
}
