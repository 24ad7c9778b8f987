// Menus as resources have them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace win32::user {

// An item of a template. The items of a pop-up follow it, up to the one that is the last of its menu.
struct TemplateItem {
    UINT type = 0;  // MFT_ bits
    UINT state = 0; // MFS_ bits
    UINT id = 0;
    bool isPopup = false;
    bool isLast = false;
    std::u16string text;
};

// Reads both forms of templates. False for one that is neither or ends too early. Throws bad_alloc.
bool readMenuTemplate(const char *bytes, size_t size, std::vector<TemplateItem> &items);

} // namespace win32::user
