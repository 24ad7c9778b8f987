// Registration of the host's clipboard formats.
#include "ClipboardFormats_internal.h"

ClipboardFormats clipboardFormats;

namespace {

struct NamedFormat {
    const char *name;
    UInt32 ClipboardFormats::*format;
};

constexpr NamedFormat namedFormats[] = {
    {"Larkspin ZP Exchange", &ClipboardFormats::exchange},
    {"Larkspin ZP Project Item Exchange", &ClipboardFormats::projectItem},
    {"ORVANE QL3", &ClipboardFormats::layout},
    {"Tessarine Text", &ClipboardFormats::styledText},
    {"Orvane Glyphweave 2.0", &ClipboardFormats::glyphweave},
    {"Portable Document Format", &ClipboardFormats::portableDocument},
    {"livelinksourcelist", &ClipboardFormats::linkSourceList},
    {"ZP Cookie", &ClipboardFormats::cookie},
};

} // namespace

void MTBX_RegisterClipboardFormats()
{
    for (const NamedFormat &named : namedFormats)
        clipboardFormats.*named.format = RegisterClipboardFormatA(named.name);
}
