// The object behind an HFONT.
#pragma once

#include "gdi_object.h"

#include <cstdint>

namespace win32::gdi {

class Font final : public Object {
public:
    static constexpr ObjectType objectType = ObjectType::Font;

    explicit Font(const LOGFONTA &wanted) : Object(objectType), description(wanted) {}

    int describe(int size, void *buffer) const override;

    LOGFONTA description;
    // No two fonts ever have the same: contexts compare it.
    const uint32_t stamp = nextStamp();

private:
    static uint32_t nextStamp();
};

} // namespace win32::gdi
