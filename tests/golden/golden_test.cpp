// Plays each script of this directory with the real program and compares all that the run leaves behind, byte for byte,
// with the script's manifest. It guards the results while code is restructured.
//
// A script that plays on tests/golden/site finds it as s:\site. The line "#again" in its head plays it twice over, in
// the same program directory, and "#posix" leaves it out on Windows, for its names or links; see PlayedProgram.h for
// the other lines.
//
// FERNCASTLE_UPDATE_GOLDEN=1 rewrites the manifests, and the tests fail to say so. That is right only after a change
// that is meant to change results or what the player says, and every changed line of a manifest should be explained by
// it. FERNCASTLE_KEEP_GOLDEN=DIR copies what was played to the directory DIR, to be looked at.
#include "PlayedProgram.h"
#include <iomanip>
#include <map>

namespace fs = std::filesystem;

namespace
{
// By path below the program directory: "directory", or size and hash.
using Manifest = std::map<Text, Text>;

Text ContentOf(const fs::path &theFile)
{
    std::ostringstream Result;
    Result << std::ifstream(theFile, std::ios::binary).rdbuf();
    return Result.str();
}

struct Golden : testing::TestWithParam<Text> {
    PlayedProgram program;

    // The same wherever the program directory stands.
    Text WithoutPlace(Text theContent) const
    {
        const Text host = HostForm(program.directory);
        theContent = ReplaceText(theContent, Paths::FromHost(host), "<program>");
        return ReplaceText(theContent, host, "<host program>");
    }

    // Size and FNV-1a of 64 bits.
    Text Fingerprint(const Text &theContent) const
    {
        const Text content = WithoutPlace(theContent);
        std::uint64_t hash = 0xcbf29ce484222325u;
        for (const char c : content)
            hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
        std::ostringstream Result;
        Result << content.size() << ' ' << std::hex << std::setw(16) << std::setfill('0') << hash;
        return Result.str();
    }

    Manifest ProgramDirectory() const
    {
        Manifest Result;
        for (const auto &entry : fs::recursive_directory_iterator(program.directory)) {
            Result[entry.path().lexically_relative(program.directory).generic_string()] =
                entry.is_directory() ? "directory" : Fingerprint(entry.is_regular_file() ? ContentOf(entry) : "");
        }
        return Result;
    }
};

Manifest ReadManifest(const fs::path &theFile)
{
    Manifest Result;
    std::ifstream lines(theFile, std::ios::binary);
    for (Text line; std::getline(lines, line);)
        Result[line.substr(0, line.find('\t'))] = line.substr(line.find('\t') + 1);
    return Result;
}

Text Differences(const Manifest &theOld, const Manifest &theNew)
{
    Text Result;
    for (const auto &[path, was] : theOld)
        if (const auto now = theNew.find(path); now == theNew.end())
            Result += "missing  " + path + "  " + was + "\n";
        else if (now->second != was)
            Result += "changed  " + path + "  " + was + " -> " + now->second + "\n";
    for (const auto &[path, now] : theNew)
        if (!theOld.contains(path))
            Result += "added    " + path + "  " + now + "\n";
    return Result;
}

std::vector<Text> AllCases()
{
    std::vector<Text> Result{"newcomer"};
    for (const auto &file : fs::directory_iterator(FERNCASTLE_GOLDEN_DIR))
        if (file.path().extension() == ".play" && (FERNCASTLE_POSIX || !Contains(ContentOf(file), "\n#posix\n")))
            Result.push_back(file.path().stem().string());
    std::sort(Result.begin(), Result.end());
    return Result;
}
}  // namespace

TEST_P(Golden, LeavesTheSameBytes)
{
    const fs::path golden = FERNCASTLE_GOLDEN_DIR;
    const fs::path script =
        GetParam() == "newcomer" ? fs::path(FERNCASTLE_DATA_DIR "/newcomer.play") : golden / (GetParam() + ".play");
    if (GetParam() != "newcomer")
        fs::copy(golden / "site", program.directory / "site", fs::copy_options::recursive);
    program.SetUp(script);

    const Manifest before = ProgramDirectory();
    Manifest now{{"(exit status)", std::to_string(program.Play(script))}, {"(output)", Fingerprint(program.said)}};
    if (Contains(ContentOf(script), "\n#again\n")) {
        now["(exit status of the second time)"] = std::to_string(program.Play(script));
        now["(output of the second time)"] = Fingerprint(program.said);
    }
    const Manifest after = ProgramDirectory();
    for (const auto &[path, what] : after)
        if (const auto was = before.find(path); was == before.end() || was->second != what)
            now[path] = what;
    for (const auto &[path, what] : before)
        if (!after.contains(path))
            now[path] = "gone";

    if (const char *keep = std::getenv("FERNCASTLE_KEEP_GOLDEN")) {
        fs::copy(program.directory, fs::path(keep) / GetParam(),
            fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        std::ofstream(fs::path(keep) / GetParam() / "output", std::ios::binary) << program.said;
    }
    const fs::path manifest = golden / (GetParam() + ".manifest");
    if (std::getenv("FERNCASTLE_UPDATE_GOLDEN")) {
        std::ofstream file(manifest, std::ios::binary);
        for (const auto &[path, what] : now)
            file << path << '\t' << what << '\n';
        FAIL() << manifest << " has been rewritten; nothing was compared";
    }
    const Text differences = Differences(ReadManifest(manifest), now);
    EXPECT_EQ(differences, "") << differences << "The player said:\n" << program.said;
}

INSTANTIATE_TEST_SUITE_P(All, Golden, testing::ValuesIn(AllCases()), [](const auto &play) { return play.param; });
