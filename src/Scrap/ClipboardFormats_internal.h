// The host's clipboard formats, as the scrap and the drag calls know them. InitGraf registers them.
#pragma once

#include <mtbx/MacTypes.h>

struct ClipboardFormats {
    UInt32 exchange;
    UInt32 projectItem;
    UInt32 layout;
    UInt32 styledText;
    UInt32 glyphweave;
    UInt32 portableDocument;
    UInt32 linkSourceList;
    UInt32 cookie;
};
extern ClipboardFormats clipboardFormats;

void MTBX_RegisterClipboardFormats();
