// Screens and the elements on them: Element, Property and Form.
//
// A control keeps two sets of values: Design, as its line in the screen's file gives them, and Now. The program reads
// and writes its properties; that loads the screen and tells the presentation. The presentation reads Now, which has no
// side effects. Closing a screen sets Now = Design for each control, so no screen remembers what was typed.
#pragma once
#include "base/Failure.h"
#include "base/Text.h"
#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

class Form;

// The procedure that an event runs.
using Handler = std::function<void()>;

// Anything on a screen that has a name.
class Element
{
public:
    Element(Form &theOwner, const char *theName);
    virtual ~Element() = default;
    Element(const Element &) = delete;
    Element &operator=(const Element &) = delete;

    Form &Owner;
    const char *const Name;

    // Loads the screen if it isn't loaded.
    inline void Touch() const;
    // Tells the presentation that Now has changed.
    void Changed();
    // The name of its kind for users, such as "label".
    virtual const char *Kind() const = 0;
    // Sets Now = Design.
    virtual void Reset() = 0;
};

// One property of an element: reading it touches the screen, assigning it also tells the presentation.
// A reference to its value changes with it: a procedure that yields keeps a copy.
template <class T> class Property
{
public:
    Property(Element *theElement, T *theNow) : mine(theElement), now(theNow) {}
    Property(const Property &) = delete;
    Property &operator=(const Property &theOther) { return *this = theOther.Get(); }

    const T &Get() const
    {
        mine->Touch();
        return *now;
    }
    operator const T &() const { return Get(); }
    Property &operator=(T theValue)
    {
        mine->Touch();
        if (!(*now == theValue)) {
            *now = std::move(theValue);
            mine->Changed();
        }
        return *this;
    }
    // Adds to the end of a text, in place.
    Property &operator+=(const T &theMore)
    {
        mine->Touch();
        *now += theMore;
        mine->Changed();
        return *this;
    }

    friend bool operator==(const Property &a, const T &b) { return a.Get() == b; }
    friend Text operator+(const Property &a, const Text &b) requires std::is_same_v<T, Text> { return a.Get() + b; }
    friend Text operator+(const Text &a, const Property &b) requires std::is_same_v<T, Text> { return a + b.Get(); }
    friend Text operator+(const Property &a, const Property &b) requires std::is_same_v<T, Text>
    {
        return a.Get() + b.Get();
    }

private:
    Element *mine;
    T *now;
};

// A property that does more than keep a value: reading and assigning it call the element's own procedures.
template <class Kind, class T> class Accessor
{
public:
    using Getter = const T &(Kind::*)() const;
    using Setter = void (Kind::*)(const T &);
    Accessor(Kind *theElement, Getter theGetter, Setter theSetter)
        : mine(theElement), getter(theGetter), setter(theSetter)
    {
    }
    Accessor(const Accessor &) = delete;
    Accessor &operator=(const Accessor &theOther) { return *this = T(theOther.Get()); }

    const T &Get() const { return (mine->*getter)(); }
    operator const T &() const { return Get(); }
    Accessor &operator=(const T &theValue)
    {
        (mine->*setter)(theValue);
        return *this;
    }
    friend bool operator==(const Accessor &a, const T &b) { return a.Get() == b; }

private:
    Kind *mine;
    Getter getter;
    Setter setter;
};

// The values of a screen. Sizes and positions are in pixels; Twips(n) converts twips.
struct FormValues {
    double Left = 0, Top = 0, Width = 0, Height = 0;
    Text Caption = {};
    Text Picture = {};  // path of the background
    bool Sizable = false;
    Handler Load = nullptr;
    Handler Resize = nullptr;
    std::function<void(bool &Cancel)> QueryUnload =
        nullptr;  // asked when the user closes the frame; Cancel set true refuses
};

inline constexpr double TwipsPerPixel = 15;
constexpr double Twips(double theTwips)
{
    return theTwips / TwipsPerPixel;
}

// A screen. There is one global object for each; it is loaded the first time that any code uses it.
class Form final : public Element
{
public:
    Form(const char *theName, FormValues theDesign);

    FormValues Design, Now;
    Property<double> Left, Top, Width, Height;
    Property<Text> Caption, Picture;

    // Sets Loaded and runs the load procedure, once. Shows nothing.
    void Load();
    // Loads the screen if it isn't loaded, and shows it.
    void Show();
    // Closes the screen without asking: hides it, stops its timers, sets every control back to its design.
    void Unload();

    bool Loaded = false;
    bool Visible = false;
    // The user can't close the screen's window now: the gate refuses.
    bool CloseRefused = false;

    const std::vector<Element *> &Elements() const { return elements; }
    // The element of that name, exactly; null when there is none.
    Element *Find(const Text &theName) const;
    // The same for one kind; null also when the element is of another kind.
    template <class Kind> Kind *Find(const Text &theName) const { return dynamic_cast<Kind *>(Find(theName)); }

    const char *Kind() const override { return "screen"; }
    void Reset() override;

    // All screens of the program, ascending by name.
    static std::vector<Form *> All();

private:
    friend class Element;
    std::vector<Element *> elements;
    Form *next;
};

inline void Element::Touch() const
{
    if (!Owner.Loaded)
        Owner.Load();
}
