// The folders of src and what each may include, read from the #include lines.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>

namespace fs = std::filesystem;
using std::string;

namespace
{
// A folder may include itself and the folders named here.
const std::map<string, std::set<string>> arrows = {{"base", {}}, {"disk", {"base"}}, {"toolkit", {"base", "disk"}},
    {"core", {"base", "disk", "toolkit"}}, {"engine", {"base", "disk", "toolkit", "core"}},
    {"report", {"base", "disk", "toolkit", "core", "engine"}}, {"wizard", {"base", "disk", "toolkit", "core"}},
    {"desktop", {"base", "disk", "toolkit", "core"}}, {"player", {"base", "disk", "toolkit", "core", "engine"}}};

// From core on, any file may name a screen, since the chain of screens is circular. Screens share their look.
const std::regex screen("(core|engine|report|wizard)/frm\\w+\\.h"), screenSource("\\w+/frm\\w+\\.(h|cpp)");
const std::set<string> lookOfScreens = {"wizard/HelpBox.h", "wizard/MenuBar.h", "wizard/ScreenLook.h"};

struct Exception {
    string File, Include, Reason;
};
const std::vector<Exception> exceptions = {
    {"core/DirHandle.cpp", "engine/temp.h", "the directories of a path are found by the rules for a link"},
    {"engine/do_the_file.cpp", "report/Records.h", "a page asks whether a link is a media link"},
    {"engine/frmProcess.cpp", "report/GenerateReport.h", "the button that ends a run starts the report"},
};

// System headers of which only some files may include any.
struct Restricted {
    std::regex Header, Files;
};
const std::vector<Restricted> restricted = {{std::regex("Q\\w+"), std::regex("desktop/.*")},
    {std::regex("(sys/.*|unistd|fcntl|dirent|windows|winioctl|shellapi|io|filesystem|fstream|mntent|mach-o/.*)(\\.h)?"),
        std::regex("disk/Io\\w*_\\w+\\.cpp|desktop/.*|player/(ferncastle-play|Host_\\w+)\\.cpp")}};

// Sources without a header of their name, and why.
const std::set<string> sourcesAlone = {
    "desktop/ferncastle.cpp",
    "player/ferncastle-play.cpp",  // main
    // Io.h and Host.h on one system
    "disk/IoContent_posix.cpp",
    "disk/IoContent_windows.cpp",
    "disk/Io_posix.cpp",
    "disk/Io_windows.cpp",
    "player/Host_posix.cpp",
    "player/Host_windows.cpp",
};

// The files of src, or of another directory, by their path below it.
std::set<string> FilesOf(const char *theDir)
{
    std::set<string> Result;
    for (const auto &file : fs::recursive_directory_iterator(theDir))
        if (file.path().extension() == ".h" || file.path().extension() == ".cpp")
            Result.insert(fs::relative(file.path(), theDir).generic_string());
    return Result;
}

// Each #include of a file with its brackets or quotes.
std::vector<string> IncludesOf(const string &theFile)
{
    static const std::regex line("\\s*#\\s*include\\s*([<\"].*[>\"]).*");
    std::vector<string> Result;
    std::ifstream file(fs::path(FERNCASTLE_SOURCE_DIR) / theFile);
    for (string text; std::getline(file, text);)
        if (std::smatch match; std::regex_match(text, match, line))
            Result.push_back(match[1]);
    return Result;
}

string FolderOf(const string &thePath)
{
    return thePath.substr(0, thePath.find('/'));
}

bool MayInclude(const string &theFile, const string &theHeader)
{
    const string from = FolderOf(theFile), to = FolderOf(theHeader);
    if (from == to || arrows.at(from).contains(to))
        return true;
    const bool isAboveToolkit = arrows.at(from).contains("toolkit");
    if (isAboveToolkit && std::regex_match(theHeader, screen))
        return true;
    return std::regex_match(theFile, screenSource) && lookOfScreens.contains(theHeader);
}
}  // namespace

TEST(Layers, ArrowsPointDownwards)
{
    std::set<std::pair<string, string>> used;
    for (const string &file : FilesOf(FERNCASTLE_SOURCE_DIR))
        for (const string &include : IncludesOf(file)) {
            const string header = include.substr(1, include.size() - 2);
            if (include[0] == '<') {
                for (const Restricted &one : restricted)
                    EXPECT_TRUE(!std::regex_match(header, one.Header) || std::regex_match(file, one.Files))
                        << file << " includes " << include;
                continue;
            }
            EXPECT_TRUE(fs::exists(fs::path(FERNCASTLE_SOURCE_DIR) / header))
                << file << " includes " << include << ", which isn't a path from src";
            const auto exception = std::find_if(exceptions.begin(), exceptions.end(),
                [&](const Exception &one) { return one.File == file && one.Include == header; });
            if (exception != exceptions.end())
                used.emplace(file, header);
            else
                EXPECT_TRUE(MayInclude(file, header)) << file << " includes " << include;
        }
    EXPECT_EQ(used.size(), exceptions.size()) << "an exception is no longer needed";
}

TEST(Layers, FilesAreNamedOnce)
{
    std::map<string, string> seen;
    for (const char *root : {FERNCASTLE_SOURCE_DIR, FERNCASTLE_TESTS_DIR})
        for (const string &file : FilesOf(root)) {
            const string name = fs::path(file).filename().string();
            EXPECT_TRUE(seen.emplace(name, file).second) << file << " and " << seen[name] << " share a name";
        }
    const std::set<string> sources = FilesOf(FERNCASTLE_SOURCE_DIR);
    for (const string &file : sources) {
        const bool isPaired = sources.contains(fs::path(file).replace_extension(".h").generic_string());
        EXPECT_TRUE(isPaired || file.ends_with(".h") || sourcesAlone.contains(file))
            << file << " has no header of its name";
    }
}
