// What reading and writing have in common on all systems. A source has Size and Read, a draft has Write and Publish, as
// in IoContent_posix.cpp and IoContent_windows.cpp, the only callers.
#pragma once
#include "base/Failure.h"
#include "disk/Io.h"
#include <exception>

namespace IoContent
{
// Reads theSource, which is theFile, from its start to its end, but no more than its size.
template <class Source> Text ReadWhole(const Source &theSource, const Text &theFile)
{
    Text Result;
    try {
        Result.resize(static_cast<std::size_t>(theSource.Size()));
    } catch (const std::exception &) {
        Fail("the file is too large", theFile);
    }
    std::size_t done = 0;
    while (done < Result.size()) {
        const std::size_t got = theSource.Read(Result.data() + done, Result.size() - done);
        if (got == 0)
            break;
        done += got;
    }
    Result.resize(done);
    return Result;
}

template <class Draft> void WriteWhole(Draft &&theDraft, std::string_view theContent)
{
    theDraft.Write(theContent);
    theDraft.Publish();
}

template <class Draft> void WritePieces(Draft &&theDraft, const Io::Pieces &thePieces)
{
    constexpr std::size_t waitingAtMost = 4 << 20;
    Text waiting;
    thePieces([&](std::string_view thePiece) {
        waiting += thePiece;
        if (waiting.size() > waitingAtMost) {
            theDraft.Write(waiting);
            waiting.clear();
        }
    });
    WriteWhole(theDraft, waiting);
}
}  // namespace IoContent
