// A gauge of free GDI objects, and the detector that compares two readings of it.
#include <mtbx/MTBXGdi.h>

#include <cstdio>
#include <cstdlib>

namespace {

// Brushes that are deleted with the object, the last first.
class BrushHoard {
public:
    BrushHoard() : brushes_(static_cast<HBRUSH *>(malloc(mostBrushes * sizeof(HBRUSH)))) {}
    ~BrushHoard()
    {
        for (UInt64 i = count_; i > 0; --i)
            DeleteObject(brushes_[i - 1]);
        free(brushes_);
    }
    BrushHoard(const BrushHoard &) = delete;
    BrushHoard &operator=(const BrushHoard &) = delete;

    explicit operator bool() const { return brushes_; }

    UInt64 fill()
    {
        // The plain call: the guard would purge memory to go on.
        while (count_ < mostBrushes && (brushes_[count_] = CreateSolidBrush(0xFFFF45E5)))
            ++count_;
        return count_;
    }

private:
    static constexpr UInt64 mostBrushes = 100000;

    HBRUSH *brushes_;
    UInt64 count_ = 0;
};

void showLoss(UInt32 lost)
{
    char text[96];
    snprintf(text, sizeof text, "Whoa padner! You leaked %lu HBRUSHs since the last benchmark",
             static_cast<unsigned long>(lost));
    MessageBoxA(nullptr, text, "Orvane Zephant", MB_ICONHAND);
}

void tellGain(UInt64 gained)
{
    char text[64];
    snprintf(text, sizeof text, "Gained %lu HBRUSHs since last benchmark\r\n", static_cast<unsigned long>(gained));
    OutputDebugStringA(text);
}

} // namespace

UInt64 MTBX_GDIBrushBenchmark()
{
    BrushHoard hoard;
    if (hoard)
        return hoard.fill();
    OutputDebugStringA("warning: could not allocate GDI leak benchmark array\r\n");
    return 0;
}

MTBX_ScGDILeakDetector::MTBX_ScGDILeakDetector(SInt32 initialTolerance)
    : tolerance(initialTolerance), baseline(MTBX_GDIBrushBenchmark())
{
}

MTBX_ScGDILeakDetector::~MTBX_ScGDILeakDetector()
{
    UInt64 now = MTBX_GDIBrushBenchmark();
    if (now == 0)
        return;
    if (now > baseline)
        tellGain(now - baseline);
    else if (auto lost = static_cast<SInt32>(baseline - now); lost > tolerance && lost != 0)
        showLoss(static_cast<UInt32>(lost));
}
