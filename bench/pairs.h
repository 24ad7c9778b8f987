// Benchmarks in pairs: ours and the reference for the same work, or ours against a bound.
//
// A benchmark is named "subject/ours" or "subject/reference"; the report puts the two side by side.
#pragma once

#include <string>

namespace pairs {

// Ours may take at most this many times the reference's time.
bool ratio(const char *subject, double highest);

// Ours may take at most this many nanoseconds beyond the reference's.
bool beyond(const char *subject, double nanoseconds);

// Ours may take at most this many nanoseconds in all; a reference is only shown.
bool within(const char *subject, double nanoseconds);

} // namespace pairs
