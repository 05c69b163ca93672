#include "core/FileHandle.h"
#include "core/DirHandle.h"
#include "core/RandomBas.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include <algorithm>
#include <map>

bool ifFileExists(const Text &theFile)
{
    return Files::IsFile(theFile);
}

Text AddTrailingSlash(const Text &thePath)
{
    Text Result;
    Trap([&] { Result = EndsWith(thePath, "\\") ? thePath : thePath + "\\"; });
    return Result;
}

std::int16_t CopyFile(const Text &fromFile, const Text &toFile, const Expectation &theExpectation)
{
    std::int16_t Result = 0;
    Trap([&] {
        if (!ifFileExists(fromFile)) {
            ++BrokenLinksTally;
            Result = 1;
            return;
        }
        if (!CreateDirectories(toFile)) {
            Result = 1;
            return;
        }
        bool isCopied = false;
        Trap([&] {
            Files::Copy(fromFile, toFile, theExpectation);
            isCopied = true;
        });
        if (!isCopied) {
            ShowMessageLines({"Unable to copy file:", fromFile, "to file:", toFile, "", "CopyFile.FileHandle"});
            Result = 1;
        }
    });
    return Result;
}

void LoadFileIntoBox(const Text &theFile, TextHolder &theBox)
{
    theBox.Text = Files::Read(theFile);
}

int AppendLineToFile(TextHolder &theTarget, const Text &, const Text &theText)
{
    Trap([&] { theTarget.Text += theText; });
    return 0;
}

int AppendLineToFile(const Text &theTarget, const Text &thePath, const Text &theText)
{
    Trap([&] {
        const Text file = AddTrailingSlash(thePath) + theTarget;
        // Appending gives the same bytes as rewriting the whole file, and its cost does not grow with the file.
        const Text lineEnd = ifFileExists(file) && !Files::EndsInLineFeed(file) ? CRLF : "";
        Files::Append(file, lineEnd + theText + CRLF);
    });
    return 0;
}

static Text ListPath(const Text &theExtension, const Text &theName)
{
    return InProgramDir(theName + "." + theExtension);
}

Text SaveListToFile(const Text &theExtension, const Text &theName, const ListBox &theList)
{
    Trap([&] {
        Text rows;
        for (int i = 0; i < theList.ListCount(); ++i)
            rows += (i == 0 ? "" : CRLF) + theList.List(i);
        PrintToFile(ListPath(theExtension, theName), rows);
    });
    return {};
}

namespace
{
// From which file a list was last filled. It is not filled again while neither the file nor the list has changed.
struct Filling {
    Text File;
    std::int64_t Stamp = -1;
    std::uint64_t Revision = 0;
};
}  // namespace

long LoadListFromFile(const Text &theExtension, const Text &theName, ListBox &theList)
{
    static std::map<const ListBox *, Filling> fillings;
    long Result = 0;
    Trap([&] {
        const Text file = ListPath(theExtension, theName);
        const std::int64_t stamp = Files::Stamp(file);
        Filling &last = fillings[&theList];
        if (stamp != -1 && last.File == file && last.Stamp == stamp && last.Revision == theList.Revision()) {
            Result = theList.ListCount();
            return;
        }
        theList.Clear();
        if (!ifFileExists(file))
            return;
        const Text text = Files::Read(file);
        std::vector<Text> rows;
        std::size_t from = 0;
        for (int i = 0; i <= 30000; ++i) {
            const std::size_t end = text.find('\r', from);
            if (end == Text::npos)
                break;
            rows.push_back(text.substr(from, end - from));
            ++Result;
            // The character after the CR is skipped untested; it should be an LF.
            from = std::min(end + 2, text.size());
        }
        theList.SetRows(std::move(rows));
        last = {file, stamp, theList.Revision()};
    });
    return Result;
}

Text GATHERFROMFILE(const Text &theFile)
{
    Text Result;
    Trap([&] {
        if (!ifFileExists(theFile)) {
            Result = "FileNotExist";
            return;
        }
        const Text text = Files::Read(theFile);
        Result = LeftPart(text, FindText(1, text, "[]") - 1);
    });
    return Result;
}

int SaveMarkedFile(const Text &theFile, const Text &theText, int quiet)
{
    Trap([&] {
        if (!ifFileExists(theFile) || quiet >= 1) {
            PrintToFile(theFile, theText + "[]");
            return;
        }
        // Deliberate: the box has only an OK button, so the answer is never Yes and the file is not changed.
        MsgBox(Text("Are you sure you want to overwrite file:  ") + CRLF + theFile + "?");
    });
    return 0;
}

void PrintToFile(const Text &theFile, const Text &theText)
{
    Text printed;
    printed.reserve(theText.size() + 2);
    printed += theText;
    printed += CRLF;
    Files::Write(theFile, printed);
}

Text NewNumberInFileName(const Text &theFileName)
{
    Text Result;
    Trap([&] {
        const Text number = PadNumberLeft(static_cast<std::int32_t>(GetRandomNumber(999999)), 6);
        const std::int64_t found = FindText(1, theFileName, FileNameNumber);
        const Text head = LeftPart(theFileName, found - 1);
        Result = head + number + RightPart(theFileName, Len(theFileName) - Len(head) - Len(FileNameNumber));
    });
    return Result;
}

static Text VariablesFile(int scope)
{
    return scope < 1 ? InProgramDir("variables.sav") : InStoreDir("variables.sav");
}

Text LoadVariable(const Text &theName, int scope)
{
    Text Result;
    Trap([&] {
        const Text file = VariablesFile(scope);
        if (!ifFileExists(file))
            return;
        const Text text = Files::Read(file);
        const std::int64_t found = FindText(1, text, "|||" + theName + "|||", true);
        if (found == 0)
            return;
        const std::int64_t start = found + 6 + Len(theName);
        const std::int64_t end = FindText(found, text, "\r");
        if (end > 0)
            Result = MidPart(text, start, end - start);
        else
            // Deliberate: the result has three characters more than the value. The files that this program writes
            // always contain a CR, so they never come here.
            Result = RightPart(text, Len(text) - FindLastText(text, "|||") + 3);
    });
    return Result;
}

int SaveVariable(const Text &theName, const Text &theValue, int scope)
{
    Trap([&] {
        const Text file = VariablesFile(scope);
        const Text entry = "|||" + theName + "|||" + theValue;
        Text newText = entry;
        if (ifFileExists(file)) {
            const Text text = Files::Read(file);
            const std::int64_t p = FindText(1, text, "|||" + theName + "|||", true);
            if (p == 0) {
                newText = text + entry;
            } else {
                const Text before = LeftPart(text, p - 1);
                const std::int64_t q = FindText(p, text, "\n");
                Text after = MidPart(text, q + 1, Len(text));
                if (EndsWith(after, "\n"))
                    after = LeftPart(after, Len(after) - 2);
                // Deliberate: no line break is put between them. In practice each file contains only one variable.
                newText = before + entry + after;
            }
        }
        PrintToFile(file, newText);
    });
    return 0;
}

Text InProgramDir(const Text &theRest)
{
    return Paths::ProgramDir() + "\\" + theRest;
}

Text PictureOf(const Text &theFile)
{
    return LoadPicture(InProgramDir("imgs\\" + theFile));
}

Text InStoreDir(const Text &theRest)
{
    return InProgramDir(ProjectNumber + "_store\\" + theRest);
}
