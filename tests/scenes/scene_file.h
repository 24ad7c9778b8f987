// The file that a run of the scenes leaves: after a signature, one record and its bytes for each scene and depth.
#pragma once

#include "scenes.h"

namespace scenes {

constexpr char fileSignature[8] = {'S', 'C', 'E', 'N', 'E', 'S', '1', '\n'};

struct SceneRecord {
    char name[48];
    int32_t depth;
    int32_t width;
    int32_t height;
    Agreement agreement;
    uint32_t byteCount; // rows from the top, padded to 4 bytes
};

} // namespace scenes
