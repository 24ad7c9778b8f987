// Runs the drawing scenes at every depth and writes their pixels: drawing_scenes FILE [part of a name]
#include "scene_file.h"

#include <cstdio>
#include <cstring>

using namespace scenes;

namespace {

constexpr int depths[] = {1, 4, 8, 16, 24, 32};
constexpr int width = 210, height = 160;

bool writeScene(FILE *file, const Scene &scene, int depth)
{
    Canvas canvas(depth, width, height);
    // What lies near a pixel tells something on an even ground only.
    if (scene.agreement == Agreement::Near)
        canvas.clear(RGB(0, 0, 0));
    scene.draw(canvas);
    std::vector<uint8_t> bytes = canvas.bytes();
    SceneRecord record{{}, depth, width, height, scene.agreement, static_cast<uint32_t>(bytes.size())};
    strncpy(record.name, scene.name, sizeof(record.name) - 1);
    return fwrite(&record, sizeof(record), 1, file) == 1 && fwrite(bytes.data(), bytes.size(), 1, file) == 1;
}

} // namespace

int main(int argc, char **argv)
{
    FILE *file = argc > 1 ? fopen(argv[1], "wb") : nullptr;
    if (!file || fwrite(fileSignature, sizeof(fileSignature), 1, file) != 1) {
        fprintf(stderr, "usage: drawing_scenes FILE [part of a name]\n");
        return 2;
    }
    bool isWhole = true;
    for (auto list : {lineScenes, shapeScenes, curveScenes, wideLineScenes, brushScenes, regionScenes, blitScenes,
                      dibScenes, mappingScenes, frameScenes})
        for (const Scene &scene : list())
            for (int depth : depths)
                if (argc < 3 || strstr(scene.name, argv[2]))
                    isWhole &= writeScene(file, scene, depth);
    isWhole &= fclose(file) == 0;
    return isWhole ? 0 : 1;
}
