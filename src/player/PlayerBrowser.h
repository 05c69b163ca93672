// The browsers of the screens as the player plays them: it keeps the history of each and reads titles, texts and links,
// but renders nothing.
#pragma once
#include "player/Script.h"
#include <map>

class PlayerBrowser
{
public:
    void Navigate(Browser &theBrowser, const Text &theAddress);
    // False when there is no page to go to.
    bool GoBack(Browser &theBrowser);
    bool GoForward(Browser &theBrowser);
    void Refresh(Browser &theBrowser);
    // Forgets the browsers of a closed screen.
    void Forget(const Form &theForm);
    // Follows the first link of the page in front whose text contains theWords.
    Outcome Follow(const Text &theWords);

private:
    struct History {
        std::vector<Text> Pages;
        std::size_t At = 0;
    };
    static void Open(Browser &theBrowser, const Text &theAddress);
    std::map<Browser *, History> histories;
};
