// The text operations that every link and every page goes through.
#include "core/AppVars.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "engine/PageText.h"
#include "engine/URLHandle.h"
#include "engine/temp.h"
#include <benchmark/benchmark.h>

namespace
{
const Text tag = "<a class=\"next page\" href=\"http://www.site.test/garden/fern.html#care\" title = \"To the ferns\">";

// A page of theSize bytes with a link in every hundred.
Text PageOf(std::int64_t theSize)
{
    const Text piece =
        "<p>A line of words that hold nothing at all.</p>\n<a HREF=\"site.test/garden/fern.htm\">Fern</a>\n";
    Text Result;
    while (Len(Result) < theSize)
        Result += piece;
    return Result;
}

void CloseUp(benchmark::State &theState)
{
    for (auto _ : theState)
        benchmark::DoNotOptimize(CloseUpEquals(tag));
}

void LinkFromTag(benchmark::State &theState)
{
    for (auto _ : theState)
        benchmark::DoNotOptimize(GetLinkFromTag(tag));
}

void InsertName(benchmark::State &theState)
{
    for (auto _ : theState)
        benchmark::DoNotOptimize(InsertFilenameIntoLink("fern.html", "451534-rates-refinance-mortgage.html", tag));
}

void AskTrash(benchmark::State &theState)
{
    std::vector<Text> rows;
    for (int i = 0; i < 250; ++i)
        rows.push_back("href=\"row" + std::to_string(i) + ":");
    frmLists::ListLinkTrash.SetRows(rows);
    for (auto _ : theState)
        benchmark::DoNotOptimize(isLinkTrash(tag));
}

void Relink(benchmark::State &theState)
{
    DomainName = "site.test";
    const Text page = PageOf(theState.range(0));
    for (auto _ : theState)
        benchmark::DoNotOptimize(RelinkRoutedPage(page, "../../"));
    theState.SetBytesProcessed(theState.iterations() * Len(page));
}

void Lower(benchmark::State &theState)
{
    const Text page = PageOf(theState.range(0));
    for (auto _ : theState)
        benchmark::DoNotOptimize(LowerText(page));
    theState.SetBytesProcessed(theState.iterations() * Len(page));
}
}  // namespace

BENCHMARK(CloseUp);
BENCHMARK(LinkFromTag);
BENCHMARK(InsertName);
BENCHMARK(AskTrash);
BENCHMARK(Relink)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(Lower)->Arg(10'000)->Arg(1'000'000);
