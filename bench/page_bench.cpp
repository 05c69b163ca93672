// The treatment of one page with many links, files and all, in a temporary program directory.
#include "core/AppVars.h"
#include "core/TextOps.h"
#include "core/frmLists.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "disk/PendingWrites.h"
#include "engine/do_the_file.h"
#include "engine/frmProcess.h"
#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace
{
// A page with as many links as asked, to twenty others.
void ExpandPage(benchmark::State &theState)
{
    const fs::path program = fs::temp_directory_path() / "ferncastle-bench";
    fs::remove_all(program);
    fs::create_directories(program / "site");
    fs::copy(FERNCASTLE_DATA_DIR "/imgs", program / "imgs");
    Paths::SetProgramDir(program.string());
    Paths::MapDrive('x', (program / "site").string());
    Text page = "<html><body>";
    for (std::int64_t i = 0; i < theState.range(0); ++i)
        page += "<p>Some words.</p> <a href=\"page" + std::to_string(i % 20) + ".htm\">there</a>\n";
    std::ofstream(program / "site" / "index.htm") << page;
    for (int i = 0; i < 20; ++i)
        std::ofstream(program / "site" / ("page" + std::to_string(i) + ".htm")) << Text(10'000, 'x');
    for (const char *directory : {"0001", "0001_store"})
        fs::create_directory(program / directory);
    std::ofstream(program / "0001_store" / "0001.key") << "moss\r\nfern\r\nriver\r\nstone\r\nmeadow\r\ncastle\r\n";
    ProjectNumber = "0001";
    DomainName = "site.test";
    LocalSiteDir = "x:\\";
    KeywordsPerFilename = 3;
    frmProcess::Dir1.Path = LocalSiteDir;
    for (auto _ : theState)
        do_the_file("index.htm");
    PendingWrites::Flush();
    theState.SetItemsProcessed(theState.iterations() * theState.range(0));
    fs::remove_all(program);
}
}  // namespace

// Few rounds, since each leaves a file a link behind.
BENCHMARK(ExpandPage)->Arg(10)->Arg(100)->Arg(1000)->Iterations(20)->Unit(benchmark::kMillisecond);
