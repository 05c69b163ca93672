#include "player/PlayerBrowser.h"
#include "core/TextOps.h"
#include "disk/Files.h"
#include "player/PageReader.h"
#include "player/Transcript.h"
#include "toolkit/Gates.h"

void PlayerBrowser::Open(Browser &theBrowser, const Text &theAddress)
{
    theBrowser.NowAddress = theAddress;
    BrowserGoes(theBrowser, theAddress);
    if (Contains(theAddress, "://")) {
        Say("browser", theAddress + " (a web address, not opened)");
        return;
    }
    if (!Files::IsFile(theAddress)) {
        Say("browser", theAddress + " (there is no such page)");
        return;
    }
    const Text title = TitleOfPage(Files::Read(theAddress));
    Say("browser", theAddress + " \"" + title + "\"\n" + Files::ToHost(theAddress));
    BrowserTitled(theBrowser, title);
}

void PlayerBrowser::Navigate(Browser &theBrowser, const Text &theAddress)
{
    History &history = histories[&theBrowser];
    history.Pages.resize(history.Pages.empty() ? 0 : history.At + 1);
    history.Pages.push_back(theAddress);
    history.At = history.Pages.size() - 1;
    Open(theBrowser, theAddress);
}

bool PlayerBrowser::GoBack(Browser &theBrowser)
{
    History &history = histories[&theBrowser];
    if (history.At == 0)
        return false;
    Open(theBrowser, history.Pages[--history.At]);
    return true;
}

bool PlayerBrowser::GoForward(Browser &theBrowser)
{
    History &history = histories[&theBrowser];
    if (history.At + 1 >= history.Pages.size())
        return false;
    Open(theBrowser, history.Pages[++history.At]);
    return true;
}

void PlayerBrowser::Refresh(Browser &theBrowser)
{
    if (const History &history = histories[&theBrowser]; !history.Pages.empty())
        Open(theBrowser, history.Pages[history.At]);
}

void PlayerBrowser::Forget(const Form &theForm)
{
    std::erase_if(histories, [&](const auto &history) { return &history.first->Owner == &theForm; });
}

Outcome PlayerBrowser::Follow(const Text &theWords)
{
    for (auto &[browser, history] : histories) {
        if (!browser->Owner.Visible || history.Pages.empty())
            continue;
        const Text page = history.Pages[history.At];
        const Text address = Files::IsFile(page) ? AddressOfLink(Files::Read(page), theWords) : "";
        if (address.empty())
            return {endScript, "there is no such link on " + page};
        Navigate(*browser, AddressFrom(page, address));
        return {};
    }
    return {endScript, "no browser is showing"};
}
