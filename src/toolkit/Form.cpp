#include "toolkit/Form.h"
#include "toolkit/Presentation.h"
#include <algorithm>
#include <cstring>

// Each screen adds itself to this chain before main. Nothing else is used across files that early.
static constinit Form *firstForm = nullptr;

Element::Element(Form &theOwner, const char *theName) : Owner(theOwner), Name(theName)
{
    if (this != &theOwner)
        theOwner.elements.push_back(this);
}

void Element::Changed()
{
    ThePresentation().Changed(*this);
}

Form::Form(const char *theName, FormValues theDesign)
    : Element(*this, theName), Design(std::move(theDesign)), Now(Design), Left(this, &Now.Left), Top(this, &Now.Top),
      Width(this, &Now.Width), Height(this, &Now.Height), Caption(this, &Now.Caption), Picture(this, &Now.Picture),
      next(firstForm)
{
    firstForm = this;
}

void Form::Load()
{
    if (Loaded)
        return;
    Loaded = true;
    if (Design.Load)
        Design.Load();
}

void Form::Show()
{
    const bool wasVisible = Visible;
    Load();
    // The load procedure may have closed the screen again, or may have shown it itself.
    if (!Loaded || (Visible && !wasVisible))
        return;
    Visible = true;
    ThePresentation().Show(*this);
}

void Form::Unload()
{
    if (!Loaded)
        return;
    Loaded = Visible = CloseRefused = false;
    ThePresentation().Unload(*this);
    Reset();
    for (Element *element : elements)
        element->Reset();
}

void Form::Reset()
{
    Now = Design;
}

Element *Form::Find(const Text &theName) const
{
    for (Element *element : elements)
        if (theName == element->Name)
            return element;
    return nullptr;
}

std::vector<Form *> Form::All()
{
    std::vector<Form *> Result;
    for (Form *form = firstForm; form; form = form->next)
        Result.push_back(form);
    std::sort(Result.begin(), Result.end(), [](Form *a, Form *b) { return std::strcmp(a->Name, b->Name) < 0; });
    return Result;
}
