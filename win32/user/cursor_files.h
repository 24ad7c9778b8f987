// Cursors and icons as resources and files have them. All of it comes from outside: sizes and places are checked.
#pragma once

#include "cursor.h"

#include <span>

namespace win32::user {

using Bytes = std::span<const uint8_t>;

enum class PictureKind { Icon, Cursor };

// A picture as one resource has it: a DIB of twice the height whose lower half is the mask, or a PNG file; a
// cursor has its hot spot before that. Null for anything else. Throws bad_alloc, as all of these do.
std::unique_ptr<Cursor> readPicture(Bytes bytes, PictureKind kind);

// A file of pictures (.CUR, .ICO): the one that suits the size best.
std::unique_ptr<Cursor> readPictureFile(Bytes bytes, int size);

// An animated cursor (.ANI). Null for anything else.
std::unique_ptr<Cursor> readAnimation(Bytes bytes, int size);

// Of the pictures that a group resource lists, the number of the one that suits best; 0 for none.
WORD chooseFromGroup(Bytes group, PictureKind kind, int size);

// The same picture in another size, each pixel that of the nearest.
void resize(Cursor &cursor, int width, int height);

// A module's cursor or icon, made when it is first asked for.
HCURSOR loadShared(HINSTANCE module, LPCSTR name, PictureKind kind);

} // namespace win32::user
