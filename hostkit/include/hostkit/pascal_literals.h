/* Pascal strings in sources that are compiled as they are.

   "\pText" is a Pascal string for clang with -fpascal-strings only; other compilers put the letter p where the length
   belongs. A source with such literals goes through mtbx-classic-source (mtbx_classic_sources in CMake), or is
   compiled by clang with that option and says

       REQUIRE_PASCAL_LITERALS;

   which does not compile where they would be wrong.

   PSTRING("Text") is a constant Pascal string for every compiler, in C and C++. It lives as long as the program. More
   than 255 characters do not compile. In C it belongs in functions; PSTRING_AT_FILE_SCOPE("Text") is for initialisers
   outside of them. In C++20 "Text"_p is the same, with using namespace hostkit::literals. */
#ifndef HOSTKIT_PASCAL_LITERALS_H
#define HOSTKIT_PASCAL_LITERALS_H

/* Otherwise compilers without them tell of the header's own. */
#pragma GCC system_header

#ifdef MTBX_CLASSIC_SOURCE /* converted */
#define HOSTKIT_HAS_PASCAL_LITERALS 1
#elif defined(__cplusplus)
#define HOSTKIT_HAS_PASCAL_LITERALS ("\pab"[0] == 2)
#else
#define HOSTKIT_HAS_PASCAL_LITERALS _Generic("\pab"[0], unsigned char : 1, default : 0)
#endif

#ifdef __cplusplus
#define REQUIRE_PASCAL_LITERALS                                                                                        \
    static_assert(HOSTKIT_HAS_PASCAL_LITERALS, "this source needs mtbx-classic-source or clang's -fpascal-strings")
#else
#define REQUIRE_PASCAL_LITERALS                                                                                        \
    _Static_assert(HOSTKIT_HAS_PASCAL_LITERALS, "this source needs mtbx-classic-source or clang's -fpascal-strings")
#endif

#if defined(__cplusplus) && __cplusplus >= 202002L

#include <stddef.h>

namespace hostkit {

/* The length, the characters, a NUL. */
template <size_t size> struct PascalText {
    unsigned char bytes[size + 1] = {};

    consteval PascalText(const char (&text)[size])
    {
        static_assert(size <= 256, "a Pascal string has 255 characters at most");
        bytes[0] = static_cast<unsigned char>(size - 1);
        for (size_t i = 0; i < size; ++i)
            bytes[i + 1] = static_cast<unsigned char>(text[i]);
    }
};

template <PascalText text> inline constexpr auto pascalText = text;

namespace literals {

template <PascalText text> consteval const auto &operator""_p()
{
    return pascalText<text>.bytes;
}

} // namespace literals
} // namespace hostkit

#define PSTRING(text) (::hostkit::pascalText<text>.bytes)
#define PSTRING_AT_FILE_SCOPE(text) PSTRING(text)

#else

#define HOSTKIT_PASCAL_RECORD(text)                                                                                    \
    struct {                                                                                                           \
        unsigned char length;                                                                                          \
        char characters[sizeof(text) <= 256 ? sizeof(text) : -1];                                                      \
    }

#ifdef __cplusplus
#define PSTRING(text)                                                                                                  \
    ([]() -> const unsigned char * {                                                                                   \
        static const HOSTKIT_PASCAL_RECORD(text) hostkitPascalText = {sizeof(text) - 1, text};                         \
        return reinterpret_cast<const unsigned char *>(&hostkitPascalText);                                            \
    }())
#define PSTRING_AT_FILE_SCOPE(text) PSTRING(text)
#else
#define PSTRING(text)                                                                                                  \
    (__extension__({                                                                                                   \
        static const HOSTKIT_PASCAL_RECORD(text) hostkitPascalText = {sizeof(text) - 1, text};                         \
        (const unsigned char *)&hostkitPascalText;                                                                     \
    }))
#define PSTRING_AT_FILE_SCOPE(text)                                                                                    \
    ((const unsigned char *)&(const HOSTKIT_PASCAL_RECORD(text)){sizeof(text) - 1, text})
#endif

#endif

#endif
