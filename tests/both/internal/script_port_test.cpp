// The current script is that of the current port's font.
#include "Quickdraw/Quickdraw_internal.h"

#include <mtbx/Script.h>

#include <gtest/gtest.h>

#include <string>

namespace {

std::string calls;

SInt16 note(char call)
{
    calls += call;
    return 0;
}

TEST(ScriptPort, TheCurrentScriptIsThatOfTheCurrentPortsFont)
{
    LOGFONTA description{};
    description.lfCharSet = 161; // Greek
    GrafPort port{};
    port.portFont = CreateFontIndirectA(&description);
    GrafPtr before = qd.thePort;
    PortFontCalls callsBefore = portFontCalls;
    portFontCalls = {[](GrafPtr) { return note('s'); }, [](GrafPtr) { return note('u'); }};

    qd.thePort = &port;
    EXPECT_EQ(MTBX_MacScriptToCharSet(smCurrentScript), description.lfCharSet);
    EXPECT_EQ(calls, "su");
    EXPECT_EQ(MTBX_MacScriptToCodePage(smCurrentScript), 1253u);
    calls.clear();
    DeleteObject(port.portFont);
    port.portFont = nullptr;
    EXPECT_EQ(MTBX_MacScriptToCharSet(smCurrentScript), MTBX_MacScriptToCharSet(smSystemScript)) << "no font yet";
    qd.thePort = nullptr;
    EXPECT_EQ(MTBX_MacScriptToCharSet(smCurrentScript), MTBX_MacScriptToCharSet(smSystemScript)) << "no port";
    EXPECT_EQ(calls, "");

    portFontCalls = callsBefore;
    qd.thePort = before;
}

} // namespace
