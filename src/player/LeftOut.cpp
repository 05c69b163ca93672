#include "player/LeftOut.h"
#include "base/Failure.h"
#include "core/TextOps.h"
#include "disk/Files.h"
#include "disk/Io.h"
#include <algorithm>
#include <map>
#include <unordered_map>

// Why the run doesn't come to theName; empty when it does.
static Text WhyLeftOut(const Io::Listed &theName, const Text &theHostPath, const std::vector<Text> &theDirectories)
{
    if (theName.IsHidden || theName.Name.starts_with('.'))
        return "hidden";
    if (theName.Name.find('\\') != Text::npos)
        return "its name holds a backslash";
    if (theName.What == Io::Kind::None)
        return theName.IsLink ? "a link that leads nowhere" : "it can't be looked at";
    if (theName.What == Io::Kind::Other)
        return "neither a file nor a directory";
    if (theName.What == Io::Kind::Directory && theName.IsLink &&
        std::find(theDirectories.begin(), theDirectories.end(), theName.Name) == theDirectories.end())
        return "a link to a directory that it is in, " + Io::RealPath(theHostPath);
    return {};
}

// The program makes the directory of a copy from the copy's path up to the first of these characters.
static const char *const cutMarks = "#?";

void CheckNames(const Text &theDir, Findings &theFindings)
{
    const Text host = Files::ToHost(theDir);
    std::vector<Io::Listed> names;
    try {
        Io::ReadDirectory(host + '/', names);
    } catch (const RuntimeFailure &) {
        return;  // the run's own failure is told
    }
    std::sort(names.begin(), names.end(), [](const Io::Listed &a, const Io::Listed &b) { return a.Name < b.Name; });
    const Files::Names directories = Files::DirectoriesIn(theDir);
    std::unordered_map<Text, const Io::Listed *> firsts;  // by their lower-case forms
    for (const Io::Listed &one : names) {
        const Text path = host + '/' + one.Name;
        const auto add = [&](const Text &theWhat) { theFindings.Add({false, path, 0, theWhat}); };
        if (const Text why = WhyLeftOut(one, path, *directories); !why.empty()) {
            add("left out of the new site: " + why);
            continue;
        }
        const bool isDirectory = one.What == Io::Kind::Directory;
        const auto [first, isNew] = firsts.try_emplace(LowerText(one.Name), &one);
        const Text twin = '"' + first->second->Name + '"';
        if (!isNew && isDirectory != (first->second->What == Io::Kind::Directory))
            add("its name differs from " + twin + " only in case, and one of them is a directory: files are lost");
        else if (!isNew)
            add("its name differs from " + twin + " only in case: " +
                (isDirectory ? "the new site has one directory for both"
                             : "the new site has only one of them, under the name of the first"));
        if (one.Name.find_first_of(cutMarks) != Text::npos)
            add(isDirectory ? "its name holds # or ?: the run can't make this directory, and its files are lost"
                            : "its name holds # or ?: the run makes an empty directory beside the copy, named as the "
                              "file is up to there");
    }
}
