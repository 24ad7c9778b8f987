// Writes what comes from outside as a replay, when WIN32_RECORD names a file.
#pragma once

#include "replay_script.h"

namespace win32::screen {

bool isRecording();
void record(Step step);
// A character that no key gives: several in a row become one step.
void noteCharacter(char16_t unit);

} // namespace win32::screen
