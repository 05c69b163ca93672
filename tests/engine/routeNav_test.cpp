#include "SiteRun.h"
#include "core/FileHandle.h"
#include "engine/RouteNav.h"

using Route = SiteRun;

TEST_F(Route, OnlyDoubleQuotedLinksAreRouted)
{
    PutAt(program / "0001" / "a" / "b.htm", "<IMG SRC=\"site.test/X\"><A HREF=\"/\"><A HREF='/x'>\"/IMGS/y\">>");
    TakePage(InProgramDir("0001"));
    RouteNav();
    EXPECT_EQ(OnDisk("0001/a/b.htm"), "<img src=\"../x\"><a href=\"../\"><a href='/x'>\"../imgs/y\">>\r\n");
}
