// Up to eight pages in their whole treatment, with any domain, keywords and lists: the links, the new pages, the
// records, the tables of the report and the route pass.
//
// The input is seven lines and the pages: the domain; the keywords; the rows of LinkTrash, domains, Indexes and
// MediaExtensions, separated by blanks; the options, one letter each. "_" is an empty row. The byte 1e separates pages.
#include "Sandbox.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "engine/LinkReader.h"
#include "engine/PageText.h"
#include "engine/RouteNav.h"
#include "engine/URLHandle.h"
#include "engine/do_the_file.h"
#include "engine/frmProcess.h"
#include "report/Records.h"
#include "wizard/frmFilters.h"
#include <algorithm>
#include <chrono>
#include <random>
#include <sstream>

namespace
{
constexpr char separator = '\x1e';
constexpr std::size_t headLines = 7, mostPages = 8;

class TinySite : public Sandbox
{
public:
    // The pages that an input can fill, and what they hold now.
    struct Page {
        Text Directory, Name, ToTop;
        Text Content = {};
        Text Path() const { return Directory + "/" + Name; }
    };
    std::vector<Page> Pages = {{"", "page.htm", ""}, {"d", "page.htm", "../"}, {"", "x.htm", ""}, {"d", "x.htm", "../"},
        {"d\\e", "x.htm", "../../"}, {"e.f", "x.htm", "../"}, {"", "index.htm", ""}, {"d", "index.htm", "../"}};
    std::uint64_t Treated = 0;

    TinySite()
    {
        for (const char *file : {"p.gif", "d/p.gif"})
            Put(site / file, "GIF89a");
        Put(top / "x.htm", "outside");
        Put(program / "secret.htm", "secret");
    }
    ~TinySite() { Tell(); }

    fs::path HostPath(const Page &thePage) const
    {
        return site / ReplaceText(thePage.Path(), "\\", "/").substr(thePage.Directory.empty());
    }
    void Tell() const
    {
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start);
        std::fprintf(stderr, "pages treated: %llu in %lld s\n", static_cast<unsigned long long>(Treated),
            static_cast<long long>(seconds.count()));
    }

private:
    const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

TinySite &TheSite()
{
    static TinySite site;
    return site;
}

std::vector<Text> PagesOf(const Text &theText)
{
    std::vector<Text> Result(1);
    for (const char letter : theText)
        if (letter == separator && Result.size() < mostPages)
            Result.emplace_back();
        else
            Result.back() += letter;
    return Result;
}

std::vector<Text> RowsOf(const Text &theLine)
{
    std::istringstream line(theLine);
    std::vector<Text> Result;
    for (Text row; line >> row;)
        Result.push_back(row == "_" ? "" : row);
    return Result;
}

// The five replacements, each by itself over the whole text, which is lower-cased before each.
Text Naively(Text thePage, const std::vector<std::pair<Text, Text>> &theReplacements)
{
    for (const auto &[find, replacement] : theReplacements) {
        thePage = LowerText(thePage);
        for (std::size_t at = 0; (at = thePage.find(find, at)) != Text::npos; at += replacement.size())
            thePage.replace(at, find.size(), replacement);
    }
    return thePage;
}

void CheckReplacements(const Text &thePage, const Text &d)
{
    const Text src = "src=\"", href = "href=\"", imgs = "\"/imgs", &domain = DomainName;
    REQUIRE(RelinkExpandedPage(thePage, d) ==
            Naively(thePage, {{src + domain + "\\", src + d}, {src + domain + "/", src + d},
                                 {href + domain + "/", href + d}, {imgs, "\"" + d + "imgs"}, {"\">>", "\">"}}));
    REQUIRE(RelinkRoutedPage(thePage, d) ==
            Naively(thePage, {{src + domain + "\\", src + d}, {src + domain + "/", src + d},
                                 {href + domain + "/", href + d}, {href + "/", href + d}, {imgs, "\"" + d + "imgs"}}));
}

// The reader of links must find what each link and each tag gives when it is judged by itself.
void CheckLinks()
{
    const Text &page = frmLists::RichTextBox2.Text;
    LinkReader reader;
    std::size_t judged = 0;  // bytes of tags; many links in one long tag would take very long
    for (std::int64_t pos = 0; judged < 8000 && (pos = FindText(pos + 1, page, "href")) != 0;) {
        reader.MoveTo(pos);
        const Text tag = GetTagAtPos(pos), link = GetLinkAtPos(pos);
        judged += tag.size();
        REQUIRE(reader.TagEnd() == FindText(pos, page, ">"));
        REQUIRE(reader.IsDotted() == (!link.empty() && Contains("./\\", link.substr(0, 1))));
        if (reader.IsDotted()) {
            const Text rebased = RebaseDottedLink(link);
            REQUIRE(!reader.IsTrashAnyway() || (rebased != "0" && isLinkTrash(SwapLinkInTag(tag, rebased, link))));
            REQUIRE(reader.IsTrashWith(rebased) == isLinkTrash(SwapLinkInTag(tag, rebased, link)));
        } else {
            Text backslashed = link;
            std::replace(backslashed.begin(), backslashed.end(), '/', '\\');
            const bool isLeftAlone = reader.IsLeftAlone();
            REQUIRE(!isLeftAlone || isLinkInternal(backslashed, tag) == 0);
            REQUIRE(isLeftAlone || !isLinkTrash(tag));
        }
    }
}

std::size_t Tabulate(const Text &LinkType)
{
    std::size_t Result = 0;
    TabulateLinks(LinkType)([&](const Text &row) {
        Result += row.size();
        // No page or tag brings in elements of its own.
        REQUIRE(std::count(row.begin(), row.end(), '<') == 4);
    });
    return Result;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *theData, std::size_t theSize)
{
    TinySite &site = TheSite();
    std::istringstream input(Text(theData, theData + theSize));
    const auto nextLine = [&] {
        Text Result;
        std::getline(input, Result);
        return Result;
    };
    DomainName = nextLine();
    Text keywords;
    for (const Text &row : RowsOf(nextLine()))
        keywords += row + CRLF;
    for (ListBox *list : {&frmLists::ListLinkTrash, &frmLists::ListDomainExtensions, &frmLists::ListIndexes,
             &frmLists::lstMediaExtensions})
        if (const auto rows = RowsOf(nextLine()); rows != list->Rows())  // the engine makes an index of new rows
            list->SetRows(rows);
    const Text options = nextLine();
    auto pages = PagesOf(Text(std::istreambuf_iterator<char>(input), {}));
#ifndef FERNCASTLE_FUZZ
    // Only in the replay, because it takes long: the first line, the second one again and again, the third one.
    if (Contains(options, "M")) {
        Text &page = pages.front();
        std::istringstream lines(page);
        Text piece, tail;
        std::getline(lines, page) && std::getline(lines, piece) && std::getline(lines, tail);
        while (page.size() < 1 << 20)
            page += piece + (piece.empty() ? "\n" : "");
        page += tail;
    }
#endif
    // With the option "d" the first two pages change places.
    std::vector<TinySite::Page *> treated;
    for (TinySite::Page &page : site.Pages)
        treated.push_back(&page);
    if (Contains(options, "d"))
        std::swap(treated[0], treated[1]);
    std::size_t size = 0;
    for (std::size_t i = 0; i < treated.size(); ++i) {
        const Text content = i < pages.size() ? pages[i] : "<a href=\"/X.htm\">";
        size += i < pages.size() ? content.size() : 0;
        if (content != treated[i]->Content)
            Sandbox::Put(site.HostPath(*treated[i]), treated[i]->Content = content);
    }
    treated.resize(pages.size());

    frmLists::lstMediaLinksCnt.SetRows({"0"});
    frmFilters::List1.SetRows({"htm"});
    frmLists::lstKeywords.SetRows(RowsOf(keywords));
    SetClock(theSize);
    ProjectNumber = "0001";
    LocalSiteDir = "x:\\";
    KeywordsPerFilename = Contains(options, "3") ? 3 : Contains(options, "1") ? 1 : 0;
    CancelRequested = false;
    BrokenLinksTally = 0;
    frmLists::rtbReportTemp = frmLists::rtbReportTemp2 = std::make_shared<const Text>();
    site.Check(size, [&](std::size_t &more) {
        for (const TinySite::Page *page : treated) {
            frmProcess::Dir1.Path = LocalSiteDir + page->Directory;
            CheckReplacements(page->Content, page->ToTop);
            if (++site.Treated % 20000 == 0)
                site.Tell();
            try {
                do_the_file(page->Name);
            } catch (const RuntimeFailure &) {  // the records of a page that fails stay, as in the program
            }
            for (std::int64_t at = 0; (at = FindText(at + 1, frmLists::RichTextBox2.Text, "href")) != 0;)
                more += 200;  // a link may need a new file
            CheckLinks();
        }
        more += Tabulate("External") + Tabulate("Broken");
        frmProcess::Dir1.Path = Paths::ProgramDir() + "\\0001";
        RouteNav();
        CheckLinks();
    });
    for (const TinySite::Page *page : treated) {
        std::ifstream file(site.HostPath(*page), std::ios::binary);
        REQUIRE(Text(std::istreambuf_iterator<char>(file), {}) == page->Content);
    }
    return 0;
}

#ifdef FERNCASTLE_FUZZ
// Most inputs change in each of their pages, and get further pages made of pieces of those that they have, since a run
// on eight pages hardly takes longer than a run on one.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *theData, std::size_t theSize, std::size_t theMost);
extern "C" std::size_t LLVMFuzzerCustomMutator(
    std::uint8_t *theData, std::size_t theSize, std::size_t theMost, unsigned theSeed)
{
    std::minstd_rand random(theSeed);
    if (theSize == 0 || random() % 8 == 0)
        return LLVMFuzzerMutate(theData, theSize, theMost);
    const Text input(theData, theData + theSize);
    std::size_t head = 0;
    for (std::size_t line = 0; line < headLines; ++line)
        head = std::min(input.find('\n', head), theSize - 1) + 1;
    auto pages = PagesOf(input.substr(head));
    for (std::size_t size = theSize; pages.size() < mostPages && size + 20 < theMost; size += pages.back().size() + 1) {
        const Text &page = pages[random() % pages.size()];
        const std::size_t share = (theMost - size) / (mostPages - pages.size() + 1);
        pages.push_back(page.substr(page.size() > share ? random() % (page.size() - share) : 0, share));
    }
    Text Result = input.substr(0, head);
    for (Text &page : pages) {
        const std::size_t size = page.size(), most = size + 64;
        page.resize(most);
        page.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t *>(page.data()), size, most));
        Result += (Result.size() > head ? Text(1, separator) : Text()) + page;
    }
    Result.resize(std::min(Result.size(), theMost));
    std::copy(Result.begin(), Result.end(), theData);
    return Result.size();
}
#endif
