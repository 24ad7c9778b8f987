// The object behind an HFONT.
#pragma once

#include "gdi_object.h"

namespace win32::gdi {

class Font final : public Object {
public:
    static constexpr ObjectType objectType = ObjectType::Font;

    explicit Font(const LOGFONTA &wanted) : Object(objectType), description(wanted) {}

    int describe(int size, void *buffer) const override;

    LOGFONTA description;
};

} // namespace win32::gdi
