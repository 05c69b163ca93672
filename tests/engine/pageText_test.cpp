#include "core/AppVars.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include "engine/PageText.h"
#include <gtest/gtest.h>
#include <random>

// The single pass gives the same result as the five replacements one after the other.
TEST(PageText, OnePassEqualsFiveReplacements)
{
    const auto inTurn = [](Text thePage, const std::vector<std::pair<Text, Text>> &thePairs) {
        for (const auto &[find, replace] : thePairs)
            thePage = ReplaceText(LowerText(thePage), find, replace);
        return LowerText(thePage);
    };
    std::minstd_rand random(7);
    for (const Text domain : {"site.test", "", "imgs", "s/x", "href=\"", "..", "Site"}) {
        DomainName = domain;
        const std::vector<Text> pieces = {"\"", "src=", "href=", "SRC=\"", "href=\"", domain, "/", "\\", "/imgs",
            "imgs", ">", ">>", "\">>", "../", "a", "\"/", domain + "/", domain + "\\"};
        for (int round = 0; round < 3000; ++round) {
            Text page;
            for (unsigned i = 0; i < 3 + random() % 12; ++i)
                page += pieces[random() % pieces.size()];
            for (const Text prefix : {"", "../", "../../"}) {
                const std::vector<std::pair<Text, Text>> common = {{"src=\"" + domain + "\\", "src=\"" + prefix},
                    {"src=\"" + domain + "/", "src=\"" + prefix}, {"href=\"" + domain + "/", "href=\"" + prefix}};
                auto expanded = common, routed = common;
                expanded.insert(expanded.end(), {{"\"/imgs", "\"" + prefix + "imgs"}, {"\">>", "\">"}});
                routed.insert(routed.end(), {{"href=\"/", "href=\"" + prefix}, {"\"/imgs", "\"" + prefix + "imgs"}});
                ASSERT_EQ(RelinkExpandedPage(page, prefix), inTurn(page, expanded)) << domain << ": " << page;
                ASSERT_EQ(RelinkRoutedPage(page, prefix), inTurn(page, routed)) << domain << ": " << page;
            }
        }
    }
}
