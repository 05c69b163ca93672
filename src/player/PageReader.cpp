#include "player/PageReader.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include "disk/Paths.h"

static Text Between(const Text &thePage, const Text &theHead, const Text &theTail, std::int64_t &thePos)
{
    const std::int64_t head = FindText(thePos, thePage, theHead, true);
    const std::int64_t tail = head > 0 ? FindText(head + Len(theHead), thePage, theTail, true) : 0;
    thePos = tail;
    return tail > 0 ? MidPart(thePage, head + Len(theHead), tail - head - Len(theHead)) : Text();
}

static Text WithoutTags(const Text &thePage)
{
    Text Result;
    bool isTag = false;
    for (const char c : thePage) {
        if (c == '<')
            isTag = true;
        if (!isTag)
            Result += c;
        if (c == '>')
            isTag = false;
    }
    return Result;
}

// Removes everything from each theHead to the next theTail.
static Text WithoutBlocks(const Text &thePage, const Text &theHead, const Text &theTail)
{
    Text Result = thePage;
    for (std::int64_t head; (head = FindText(1, Result, theHead, true)) > 0;) {
        const std::int64_t tail = FindText(head, Result, theTail, true);
        if (tail == 0)
            break;
        Result.erase(static_cast<std::size_t>(head - 1), static_cast<std::size_t>(tail - head + Len(theTail)));
    }
    return Result;
}

Text TextOfPage(const Text &thePage)
{
    Text page = WithoutBlocks(WithoutBlocks(thePage, "<head", "</head>"), "<script", "</script>");
    page = ReplaceText(WithoutBlocks(page, "<!--", "-->"), "\n", " ");
    for (const char *end : {"</tr>", "</TR>", "</div>", "</p>", "</h1>", "</h2>", "</table>"})
        page = ReplaceText(page, end, "\n");
    for (const char *end : {"</td>", "</TD>", "</th>"})
        page = ReplaceText(page, end, "  ");
    Text Result;
    bool isBlank = true;
    for (const char c : ReplaceText(ReplaceText(WithoutTags(page), "&nbsp;", " "), "&middot;", "-")) {
        if (c == '\n' ? Result.ends_with('\n') || Result.empty() : (c == ' ' || c == '\r') && isBlank)
            continue;
        isBlank = c == '\n' || c == ' ';
        Result += c == '\r' ? ' ' : c;
    }
    return Result;
}

Text TitleOfPage(const Text &thePage)
{
    std::int64_t pos = 1;
    return Between(thePage, "<title>", "</title>", pos);
}

Text AddressOfLink(const Text &thePage, const Text &theText)
{
    for (std::int64_t pos = 1; pos > 0;) {
        const Text link = Between(thePage, "<a ", "</a>", pos);
        const std::int64_t end = FindText(1, link, ">");
        if (pos == 0 || end == 0)
            continue;
        if (FindText(1, WithoutTags(MidPart(link, end + 1, Len(link))), theText, true) == 0)
            continue;
        std::int64_t inTag = 1;
        return Between(LeftPart(link, end), "href=\"", "\"", inTag);
    }
    return {};
}

Text AddressFrom(const Text &thePage, const Text &theAddress)
{
    const Text address = theAddress.substr(0, theAddress.find_first_of("#?"));
    if (Contains(address, "://") || MidPart(address, 2, 1) == ":" || Contains(thePage, "://"))
        return address;
    return Paths::Normalize(LeftPart(thePage, FindLastText(thePage, "\\")) + ReplaceText(address, "/", "\\"));
}
