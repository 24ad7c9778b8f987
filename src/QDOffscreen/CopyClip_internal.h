// The mask of a copy as the clip of its destination.
#pragma once

#include "CopyImages_internal.h"
#include "Quickdraw/Regions_internal.h"

// Computes a port's clip, limited to the mask unless that is null. False when it stayed what it was. An
// error that the host has not read yet stays.
bool computeClip(GrafPort &port, RgnHandle mask);

// Limits the destination's context to the mask, unless that is null, while the object lives. The host's
// grow-zone function may run while it is made.
class CopyClip {
public:
    CopyClip(const CopySide &destination, RgnHandle mask);
    ~CopyClip();
    CopyClip(const CopyClip &) = delete;
    CopyClip &operator=(const CopyClip &) = delete;

    // False when there was no memory for the clip: nothing may be drawn then.
    bool isReady() const { return isReady_; }

private:
    bool keepFormerClip();
    bool apply();

    CopySide destination_;
    RgnHandle mask_;
    ScratchNativeRegion former_;
    bool hadClip_ = false;
    bool isKept_;
    bool isReady_;
};
