// What the platforms have their own ways for.
#pragma once

namespace tool {

// Called once, before any call of Win32.
void preparePlatform();

} // namespace tool
