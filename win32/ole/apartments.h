// Which threads have started COM.
#pragma once

namespace win32 {

// Whether the calling thread may make objects: it has started COM itself, or some thread of the process
// has done so for all.
bool isInApartment();

} // namespace win32
