#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "engine/temp.h"
#include <algorithm>

// Deliberate: nothing sets this, so MakeOneDir never shows its message.
static bool showsDirErrors = false;

bool ifDirExists(const Text &thePath)
{
    bool Result = false;
    Trap([&] {
        if (MidPart(thePath, 2, 2) != ":\\") {
            MsgBox(Text("ifDirExists() function must receive its parameter in the form of \"c:\\123\\456\\\"") + CRLF +
                   CRLF + "Your directory parameter was in this form:  \"" + thePath + "\"");
            MsgBox(DebugWhere);
            return;
        }
        if (ifDriveExists(thePath))
            Result = Files::IsDirectory(thePath);
    });
    return Result;
}

bool ifDriveExists(const Text &thePath)
{
    bool Result = false;
    Trap([&] {
        Text drive = LeftPart(thePath, 3);
        if (Len(drive) == 1)
            drive += ":\\";
        // Deliberate: "x:" is not accepted, because its characters 2 and 3 are not ":\".
        if (MidPart(drive, 2, 2) == ":\\")
            Result = Files::IsDirectory(drive);
    });
    return Result;
}

bool CreateDirectories(const Text &thePath)
{
    bool Result = true;
    Trap([&] {
        if (MidPart(thePath, 2, 2) != ":\\") {
            MsgBox(Text("You must include the drive for which you'd like to create your directory(s)") + CRLF +
                   "example:  C:\\" + thePath);
            return;
        }
        const Text drive = LeftPart(thePath, 2);
        if (!ifDriveExists(thePath))
            Fail("drive not found", thePath);
        // Deliberate: GetFileFromLink cuts the path at a "#" or "?", so a directory with one in its name is not made.
        const Text path = AddTrailingSlash(GetFileFromLink(thePath, 1, 0));
        // When the directory exists, the steps below can only fail in silence; but a path with ".." may lead through
        // directories that do not exist yet.
        if (!Contains(path, "..") && Files::IsDirectory(path))
            return;
        // The directory of each step is kept in its shortest form, since a link may hold thousands of "..".
        Text dir = drive, missing = "?";
        for (std::size_t at = 3, end; (end = path.find('\\', at)) != Text::npos; at = end + 1) {
            const Text name = path.substr(at, end - at);
            if (name == "..")
                dir.resize(std::max(dir.rfind('\\'), std::size_t{2}));
            else if (name.find('/') != Text::npos)
                dir = Paths::Normalize(dir + "\\" + name);
            else if (!name.empty() && name != ".")
                dir += "\\" + name;
            // Below a directory that isn't there none can be made.
            if (!dir.starts_with(missing) && !MakeOneDir(dir) && !Files::IsDirectory(dir))
                missing = dir + "\\";
        }
    });
    return Result;
}

bool MakeOneDir(const Text &thePath)
{
    const bool Result = Files::MakeDirectory(thePath);
    if (!Result && showsDirErrors)
        MsgBox("Error creating directory:  " + thePath);
    return Result;
}
