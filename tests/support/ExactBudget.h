// A fixture in which the usage is the library's own count alone: the system is never asked.
#pragma once

#include "Settings.h"

#include "Memory/Memory_internal.h"

#include <gtest/gtest.h>

class ExactBudget : public testing::Test {
protected:
    ExactBudget() : settings_("TrackMemoryWithGPMI=0\r\n") { MTBX_ReleaseProcessStatus(); }

    Settings settings_;
};
