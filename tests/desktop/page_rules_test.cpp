// The rules for pages, without a browser.
#include "WindowTest.h"
#include "desktop/PageRules.h"
#ifdef FERNCASTLE_WEBENGINE
#include "desktop/PageLinks.h"
#endif

using PageRules::Verdict, PageRules::Use;

TEST_F(WindowTest, WherePagesMayLead)
{
    const std::filesystem::path outside = program.string() + "-2";
    std::filesystem::create_directory(outside);
    PutLink(outside, program / "out");
    const bool hasLink = std::filesystem::exists(program / "out");
    const auto folder = [](const std::filesystem::path &theDir) {
        return QUrl::fromLocalFile(QString::fromStdString(HostForm(theDir) + '/')).toString();
    };
    const QString here = folder(program), there = folder(outside);
    const auto url = [&](const char *theUrl) {
        QString Result = QString::fromLatin1(theUrl);
        return QUrl(Result.replace(QLatin1String("there:"), there).replace(QLatin1String("here:"), here));
    };
    for (const auto &[file, isOurs] : std::map<const char *, bool>{{"here:a.htm", true}, {"here:no/such/a.htm", true},
             {"here:%2e%2e/a.htm", false}, {"here:out/a.htm", !hasLink}, {"there:a.htm", false},
             {"file://x/a.htm", false}, {"file:///", false}, {"here:a%00.htm", false}, {"http://x/a.htm", false}})
        EXPECT_EQ(PageRules::IsOurFile(url(file)), isOurs) << file;
    const std::tuple<const char *, const char *, Use, bool> loads[] = {{"here:a.png", "here:a.htm", Use::Part, true},
        {"here:a.txt", "here:a.htm", Use::Data, false}, {"http://x/a.png", "here:a.htm", Use::Part, false},
        {"data:,x", "here:a.htm", Use::Data, true}, {"here:a.png", "http://x/", Use::Part, false},
        {"http://y/a.txt", "http://x/", Use::Data, true}};
    for (const auto &[file, page, use, may] : loads)
        EXPECT_EQ(PageRules::MayLoad(url(file), url(page), use), may) << file << " in " << page;

    // From, to, what comes with it: c a click, f a frame, s a form, r a redirect, i the link is in the file.
    const std::tuple<const char *, const char *, Text, Verdict> steps[] = {
        {"here:a.htm", "here:b.htm", "", Verdict::Allow}, {"here:a.htm", "there:b.htm", "", Verdict::Refuse},
        {"here:a.htm", "there:b.htm", "c", Verdict::Allow}, {"here:a.htm", "there:b.htm", "cf", Verdict::Refuse},
        {"here:a.htm", "http://x/", "", Verdict::Refuse}, {"here:a.htm", "http://x/", "c", Verdict::AskPage},
        {"here:a.htm", "http://x/", "ci", Verdict::Open}, {"here:a.htm", "http://x/", "csi", Verdict::Refuse},
        {"here:a.htm", "mailto:x@y", "c", Verdict::AskOther}, {"here:a.htm", "mailto:x@y", "", Verdict::Refuse},
        {"here:a.htm", "data:,x", "c", Verdict::Refuse}, {"here:a.htm", "data:,x", "f", Verdict::Allow},
        {"here:a.htm", "z:\\no.htm", "c", Verdict::Open}, {"http://x/", "here:a.htm", "c", Verdict::Refuse},
        {"http://x/", "http://x/b", "s", Verdict::Allow}, {"http://x/", "http://y/", "", Verdict::Refuse},
        {"http://x/", "http://y/", "r", Verdict::Allow}, {"http://x/", "http://y/", "c", Verdict::Allow},
        {"http://x/", "mailto:x@y", "c", Verdict::AskOther}, {"http://x/", "z:\\no.htm", "c", Verdict::Refuse}};
    for (const auto &[from, to, with, verdict] : steps) {
        const auto has = [&words = with](char theLetter) { return words.find(theLetter) != Text::npos; };
        const PageRules::Step step{url(from), url(to), has('f'), has('s'), has('r'), has('c')};
        EXPECT_EQ(PageRules::Judge(step, [&] { return has('i'); }), verdict) << from << " to " << to << " " << with;
    }
    std::filesystem::remove(outside);
}

#ifdef FERNCASTLE_WEBENGINE
TEST(PageLinks, AreFoundInTheFile)
{
    // The text of a file, an address, and the link that the file holds to it.
    const std::tuple<const char *, const char *, const char *> rows[] = {
        {"<a href=http://x/a>", "http://x/a", "http://x/a"}, {"<A HREF = 'http://x'>", "http://x/", "http://x"},
        {"<a href=\"http://x/?a=1&amp;b\">", "http://x/?a=1&b", "http://x/?a=1&b"},
        {"<a href=\"http://x/%41#b\">", "http://x/A#b", "http://x/A#b"}, {"<a href=http://x/a>", "http://x/a?b", ""},
        {"<a href=http://x:80/a/../b>", "http://x/b", "http://x:80/b"}, {"href", "http://x/", ""},
        {"<base href='http://x/d/'><a href=e>", "http://x/d/e", "http://x/d/e"},
        {"<a href=\"\nb\">", "http://p/b", "http://p/b"}};
    for (const auto &[text, address, link] : rows) {
        const QUrl found = LinkInText(text, QUrl(QStringLiteral("http://p/a")), QUrl(QLatin1String(address)));
        EXPECT_EQ(found.toString(QUrl::FullyEncoded).toStdString(), link) << text;
    }
}
#endif
