// Font files: opened, measured and drawn from at several sizes.
#include "gdi/font_face.h"

#include <algorithm>
#include <cstring>

using namespace win32::gdi;

namespace {

void drawFrom(const FaceLocation &location, int height, int width, BYTE quality)
{
    auto face = openFace(location);
    if (!face)
        return;
    LOGFONTA description{};
    description.lfHeight = height;
    description.lfWidth = width;
    description.lfQuality = quality;
    strcpy(description.lfFaceName, "Fuzzed");
    auto source = faceSource(face, description, {height > 0, height > 0});
    for (char32_t character : {U'\1', U'A', U'g', U'\xe9', U'\x3042'})
        for (Posture posture : {Posture::WithLine, Posture::OnItsBack})
            glyphOf(source->load(character, posture));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FaceLocation location{"", 0, std::make_shared<const std::vector<uint8_t>>(data, data + size)};
    FaceFacts facts;
    facts.faces = 1;
    for (; location.index < std::min(facts.faces, 3); ++location.index) {
        if (!readFacts(location, facts))
            break;
        drawFrom(location, -12, 0, NONANTIALIASED_QUALITY);
        drawFrom(location, 40, 9, ANTIALIASED_QUALITY);
    }
    return 0;
}
