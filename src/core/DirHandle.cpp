#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "disk/Files.h"
#include "engine/temp.h"

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
        const Text belowDrive = RightPart(path, Len(path) - 2);
        for (std::int64_t i = 1; i <= Len(belowDrive); ++i)
            if (MidPart(belowDrive, i, 1) == "\\")
                MakeOneDir(drive + LeftPart(belowDrive, i - 1));
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
