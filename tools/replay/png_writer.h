// Pictures as PNG files, without a library: small ones where neighbours are alike, as on screens.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace replay {

// rgb: three bytes a pixel, from the top row down. False with errno set when it cannot be written; then no file is
// left.
bool writePng(const std::string &path, int width, int height, const std::vector<uint8_t> &rgb);

} // namespace replay
