// The variables and the list of their names stand in two files. This test reads the first and looks up in the second.
#include "core/AppVarNames.h"
#include <fstream>
#include <gtest/gtest.h>
#include <regex>

TEST(AppVarNames, EveryGlobalIsFoundByItsName)
{
    const std::regex definition("inline constinit \\w+ (\\w+)");
    std::ifstream header(FERNCASTLE_DATA_DIR "/../src/core/AppVars.h");
    std::size_t defined = 0;
    for (Text line; std::getline(header, line);)
        if (std::smatch parts; std::regex_search(line, parts, definition)) {
            ++defined;
            EXPECT_TRUE(FindAppVar(parts[1])) << parts[1] << " is missing in AppVarNames.cpp";
        }
    EXPECT_EQ(AppVarCount(), defined);
    EXPECT_FALSE(FindAppVar("projectname"));
}
