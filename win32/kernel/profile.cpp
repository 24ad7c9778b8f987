// The profile calls.
#include "faults.h"
#include "kernel_internal.h"
#include "profile_store.h"
#include "profile_struct.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace {

using namespace win32;

std::string_view withoutTrailingBlanks(std::string_view text)
{
    while (text.ends_with(' '))
        text.remove_suffix(1);
    return text;
}

// A value in a pair of quotes stands for what is between them.
std::string_view withoutQuotes(std::string_view text)
{
    bool quoted = text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
    return quoted ? text.substr(1, text.size() - 2) : text;
}

DWORD copyText(std::string_view text, LPSTR buffer, DWORD size)
{
    text = text.substr(0, text.find('\0'));
    DWORD copied = static_cast<DWORD>(std::min<size_t>(text.size(), size - 1));
    memmove(buffer, text.data(), copied); // a default may lie in the buffer itself
    buffer[copied] = 0;
    return copied;
}

// A list of texts, each with its terminator, and one terminator more. A list that does not fit is
// cut, and the result is then the size less 2.
class ListWriter {
public:
    ListWriter(LPSTR buffer, DWORD size) : buffer_(buffer), size_(size) {}

    void add(std::string_view text)
    {
        append(text);
        append(std::string_view("\0", 1));
    }

    bool isEmpty() const { return used_ == 0 && !cut_; }

    DWORD finish()
    {
        if (!cut_) {
            buffer_[used_] = 0;
            return used_;
        }
        buffer_[size_ - 1] = 0;
        if (size_ >= 2)
            buffer_[size_ - 2] = 0;
        return size_ >= 2 ? size_ - 2 : 0;
    }

private:
    void append(std::string_view text)
    {
        DWORD room = size_ - 1 - used_;
        DWORD copied = static_cast<DWORD>(std::min<size_t>(text.size(), room));
        memcpy(buffer_ + used_, text.data(), copied);
        used_ += copied;
        cut_ |= copied < text.size();
    }

    LPSTR buffer_;
    DWORD size_;
    DWORD used_ = 0;
    bool cut_ = false;
};

DWORD copyDefault(LPCSTR defaultText, LPSTR buffer, DWORD size)
{
    return copyText(withoutTrailingBlanks(defaultText ? defaultText : ""), buffer, size);
}

DWORD copyNames(const ProfileFile &file, LPCSTR section, LPCSTR defaultText, LPSTR buffer, DWORD size)
{
    ListWriter list(buffer, size);
    auto add = [&](std::string_view name) { list.add(name); };
    if (section)
        file.eachKey(section, add);
    else
        file.eachSection(add);
    return section && list.isEmpty() ? copyDefault(defaultText, buffer, size) : list.finish();
}

int hexDigit(char character)
{
    if (character >= '0' && character <= '9')
        return character - '0';
    character = lowerAscii(character);
    return character >= 'a' && character <= 'f' ? character - 'a' + 10 : -1;
}

// The byte that two hexadecimal digits stand for, -1 for other characters.
int byteAt(std::string_view text, size_t place)
{
    int high = hexDigit(text[2 * place]), low = hexDigit(text[2 * place + 1]);
    return (high | low) < 0 ? -1 : high * 16 + low;
}

// Reads what profileStruct makes. Nothing is written unless all is right.
bool decodeStruct(std::string_view text, BYTE *data, UINT size)
{
    if (text.size() / 2 != size_t{size} + 1 || text.size() % 2 != 0)
        return fail(ERROR_BAD_LENGTH, false);
    unsigned sum = 0;
    for (size_t place = 0; place < size; ++place) {
        int value = byteAt(text, place);
        if (value < 0)
            return fail(ERROR_INVALID_DATA, false);
        sum += static_cast<unsigned>(value);
    }
    if (byteAt(text, size) != static_cast<BYTE>(sum))
        return fail(ERROR_INVALID_DATA, false);
    for (size_t place = 0; place < size; ++place)
        data[place] = static_cast<BYTE>(byteAt(text, place));
    return true;
}

// The number at the start of a text: decimal, or hexadecimal behind "0x"; wraps at 32 bits.
UINT numberIn(std::string_view text)
{
    while (text.starts_with(' ') || text.starts_with('\t'))
        text.remove_prefix(1);
    bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    unsigned base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        base = 16;
        text.remove_prefix(2);
    }
    UINT value = 0;
    for (char character : text) {
        int digit = hexDigit(character);
        if (digit < 0 || static_cast<unsigned>(digit) >= base)
            break;
        value = value * base + static_cast<unsigned>(digit);
    }
    return negative ? 0 - value : value;
}

} // namespace

DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer, DWORD size, LPCSTR file)
{
    if (!buffer || size == 0)
        return 0;
    // The default, or the names, may lie in the buffer: nothing is written to it before the text is known.
    bool isAnswered = false;
    DWORD length = guarded(DWORD{0}, [&] {
        DWORD result = 0;
        profiles::read(file, [&](const ProfileFile &profile) {
            if (!section || !key) {
                result = copyNames(profile, section, defaultText, buffer, size);
                return;
            }
            std::string_view value = profile.value(section, key);
            if (!value.data())
                SetLastError(ERROR_FILE_NOT_FOUND);
            result =
                value.data() ? copyText(withoutQuotes(value), buffer, size) : copyDefault(defaultText, buffer, size);
        });
        isAnswered = true;
        return result;
    });
    if (!isAnswered)
        buffer[0] = 0;
    return length;
}

UINT GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue, LPCSTR file)
{
    if (!section || !key)
        return static_cast<UINT>(defaultValue);
    return guarded(static_cast<UINT>(defaultValue), [&] {
        UINT result = static_cast<UINT>(defaultValue);
        profiles::read(file, [&](const ProfileFile &profile) {
            std::string_view value = withoutQuotes(profile.value(section, key));
            if (!value.empty())
                result = numberIn(value);
        });
        return result;
    });
}

BOOL GetPrivateProfileStructA(LPCSTR section, LPCSTR key, LPVOID data, UINT size, LPCSTR file)
{
    if (!section || !key || (!data && size > 0))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return guarded(FALSE, [&] {
        BOOL result = FALSE;
        profiles::read(file, [&](const ProfileFile &profile) {
            std::string_view value = profile.value(section, key);
            if (value.data())
                result = decodeStruct(value, static_cast<BYTE *>(data), size);
            else
                SetLastError(ERROR_FILE_NOT_FOUND);
        });
        return result;
    });
}

BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text, LPCSTR file)
{
    if (faults::fails("WritePrivateProfileStringA"))
        return FALSE;
    return guarded(FALSE, [&]() -> BOOL {
        // All null drops what is kept of the file; the call answers FALSE then, as documented.
        if (!section) {
            if (key || text)
                return fail(ERROR_INVALID_PARAMETER, FALSE);
            profiles::forget(file);
            return fail(NO_ERROR, FALSE);
        }
        return profiles::change(file, [&](ProfileFile &profile) {
            if (!key)
                profile.removeSection(section);
            else if (!text)
                profile.removeKey(section, key);
            else
                profile.setValue(section, key, text);
        });
    });
}

BOOL WritePrivateProfileStructA(LPCSTR section, LPCSTR key, LPVOID data, UINT size, LPCSTR file)
{
    if (!data)
        return WritePrivateProfileStringA(section, key, nullptr, file);
    return guarded(FALSE, [&] {
        return WritePrivateProfileStringA(section, key, profileStruct(static_cast<const BYTE *>(data), size).c_str(),
                                          file);
    });
}

DWORD GetProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer, DWORD size)
{
    return GetPrivateProfileStringA(section, key, defaultText, buffer, size, nullptr);
}
