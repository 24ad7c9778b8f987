// The buttons of the mouse that the replay holds down.
#pragma once

namespace replay {

bool holdsButton();

} // namespace replay
