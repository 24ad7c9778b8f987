// Animated cursors: a RIFF file of whole cursor files, with the order and the time of each.
#include "cursor_files.h"

#include <algorithm>
#include <cstring>

namespace win32::user {
namespace {

constexpr uint32_t named(const char (&name)[5])
{
    return static_cast<uint32_t>(name[0]) | static_cast<uint32_t>(name[1]) << 8 | static_cast<uint32_t>(name[2]) << 16
           | static_cast<uint32_t>(name[3]) << 24;
}

struct Chunk {
    uint32_t name;
    Bytes data;
};

// Takes the first chunk off the bytes. A chunk that says it is longer than the rest is cut off there.
bool takeChunk(Bytes &bytes, Chunk &chunk)
{
    uint32_t head[2];
    if (bytes.size() < sizeof head)
        return false;
    memcpy(head, bytes.data(), sizeof head);
    bytes = bytes.subspan(sizeof head);
    size_t size = std::min<size_t>(head[1], bytes.size());
    chunk = {head[0], bytes.first(size)};
    // Chunks begin at even places.
    bytes = bytes.subspan(std::min(size + size % 2, bytes.size()));
    return true;
}

// The four letters at the head of a list, which come off.
uint32_t takeName(Bytes &bytes)
{
    uint32_t name = 0;
    if (bytes.size() < sizeof name)
        return 0;
    memcpy(&name, bytes.data(), sizeof name);
    bytes = bytes.subspan(sizeof name);
    return name;
}

std::vector<uint32_t> words(Bytes bytes)
{
    std::vector<uint32_t> result(bytes.size() / sizeof(uint32_t));
    if (!result.empty())
        memcpy(result.data(), bytes.data(), result.size() * sizeof(uint32_t));
    return result;
}

struct Header {
    uint32_t size, pictureCount, stepCount, width, height, bits, planes, rate, flags;
};

struct Animation {
    Header header{};
    std::vector<uint32_t> rates, order;
    std::vector<std::unique_ptr<Cursor>> pictures;
};

constexpr size_t mostPictures = 1000, mostSteps = 10000;

void readPictures(Bytes list, int size, Animation &animation)
{
    if (takeName(list) != named("fram"))
        return;
    Chunk chunk;
    while (animation.pictures.size() < mostPictures && takeChunk(list, chunk)) {
        auto picture = chunk.name == named("icon") ? readPictureFile(chunk.data, size) : nullptr;
        if (picture)
            animation.pictures.push_back(std::move(picture));
    }
}

void readChunk(const Chunk &chunk, int size, Animation &animation)
{
    switch (chunk.name) {
    case named("anih"):
        memcpy(&animation.header, chunk.data.data(), std::min(chunk.data.size(), sizeof animation.header));
        break;
    case named("rate"):
        animation.rates = words(chunk.data);
        break;
    case named("seq "):
        animation.order = words(chunk.data);
        break;
    case named("LIST"):
        readPictures(chunk.data, size, animation);
        break;
    default:
        break;
    }
}

// Rates are sixtieths of a second.
uint32_t millisecondsOf(uint32_t rate)
{
    return std::clamp(rate, uint32_t{1}, uint32_t{60 * 60}) * 1000 / 60;
}

void addSteps(Cursor &cursor, const Animation &animation)
{
    size_t count = animation.order.empty() ? cursor.pictures.size() : std::min(animation.order.size(), mostSteps);
    if (animation.header.stepCount)
        count = std::min<size_t>(count, animation.header.stepCount);
    for (size_t i = 0; i < count; ++i) {
        size_t picture = animation.order.empty() ? i : animation.order[i];
        uint32_t rate = i < animation.rates.size() ? animation.rates[i] : animation.header.rate;
        if (picture < cursor.pictures.size())
            cursor.steps.push_back({picture, millisecondsOf(rate)});
    }
    for (const Cursor::Step &step : cursor.steps)
        cursor.duration += step.milliseconds;
}

} // namespace

std::unique_ptr<Cursor> readAnimation(Bytes bytes, int size)
{
    Chunk riff;
    if (!takeChunk(bytes, riff) || riff.name != named("RIFF") || takeName(riff.data) != named("ACON"))
        return nullptr;
    Animation animation;
    for (Chunk chunk; takeChunk(riff.data, chunk);)
        readChunk(chunk, size, animation);
    auto cursor = std::make_unique<Cursor>();
    cursor->pictures = std::move(animation.pictures);
    addSteps(*cursor, animation);
    if (!cursor->duration)
        return nullptr;
    const Cursor &first = *cursor->pictures[cursor->steps[0].picture];
    cursor->width = first.width;
    cursor->height = first.height;
    cursor->hotX = first.hotX;
    cursor->hotY = first.hotY;
    return cursor;
}

} // namespace win32::user
