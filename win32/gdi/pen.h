// The object behind an HPEN.
#pragma once

#include "brush.h"

namespace win32::gdi {

class Pen final : public Object {
public:
    static constexpr ObjectType objectType = ObjectType::Pen;

    Pen() : Object(objectType), brush(BS_SOLID, 0, 0) {}

    int describe(int size, void *buffer) const override;
    DWORD publishedType() const override { return isExtended ? OBJ_EXTPEN : OBJ_PEN; }

    DWORD style = PS_SOLID; // all its bits
    int width = 0;          // logical units; 0 and, for cosmetic pens, 1 mean one pixel
    bool isExtended = false;
    std::vector<DWORD> lengths; // of PS_USERSTYLE
    Brush brush;                // its colour and pattern; never in the table

    DWORD lineStyle() const { return style & PS_STYLE_MASK; }
    bool isGeometric() const { return (style & PS_TYPE_MASK) == PS_GEOMETRIC; }
};

} // namespace win32::gdi
