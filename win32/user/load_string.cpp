// String resources: blocks of sixteen counted UTF-16 texts.
#include "kernel/code_pages.h"
#include "kernel/kernel_internal.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>

namespace {

using namespace win32;

// The text at a place of a block; nothing when the block ends before it.
std::optional<std::u16string> textInBlock(const char *block, size_t size, UINT place)
{
    size_t offset = 0;
    for (;; --place) {
        WORD length;
        if (size - offset < sizeof length)
            return std::nullopt;
        memcpy(&length, block + offset, sizeof length);
        offset += sizeof length;
        size_t bytes = length * sizeof(char16_t);
        if (size - offset < bytes)
            return std::nullopt;
        if (place == 0) {
            std::u16string text(length, 0);
            memcpy(text.data(), block + offset, bytes);
            return text;
        }
        offset += bytes;
    }
}

} // namespace

int LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int size)
{
    if (!buffer || size <= 0)
        return fail(ERROR_INVALID_PARAMETER, 0);
    buffer[0] = 0;
    return guarded(0, [&] {
        constexpr UINT textsInBlock = 16;
        HRSRC resource = FindResourceA(module, MAKEINTRESOURCEA(id / textsInBlock + 1), RT_STRING);
        if (!resource)
            return 0;
        auto block = static_cast<const char *>(LockResource(LoadResource(module, resource)));
        auto text = textInBlock(block, SizeofResource(module, resource), id % textsInBlock);
        if (!text || text->empty())
            return fail(ERROR_RESOURCE_NAME_NOT_FOUND, 0);
        std::string ansi = ansiFromUtf16(*text);
        size_t copied = std::min(ansi.size(), static_cast<size_t>(size) - 1);
        memcpy(buffer, ansi.data(), copied);
        buffer[copied] = 0;
        return static_cast<int>(copied);
    });
}
