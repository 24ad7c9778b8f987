// C strings and Pascal strings, each made from the other.
#include <mtbx/TextUtils.h>

#include <cstring>

StringPtr c2pstr(char *text)
{
    size_t length = strnlen(text, 255);
    memmove(text + 1, text, length);
    auto result = reinterpret_cast<StringPtr>(text);
    result[0] = static_cast<unsigned char>(length);
    return result;
}

char *p2cstr(StringPtr text)
{
    size_t length = text[0];
    memmove(text, text + 1, length);
    text[length] = 0;
    return reinterpret_cast<char *>(text);
}

StringPtr pstrcpy(StringPtr destination, ConstStr255Param source)
{
    if (!destination)
        return nullptr;
    if (source)
        memmove(destination, source, size_t{source[0]} + 1);
    else
        destination[0] = 0;
    return destination;
}
