// Text with tab stops.
#include "gdi/box.h"
#include "kernel/kernel_internal.h"

#include <cstdlib>
#include <string_view>

using namespace win32;
using namespace win32::gdi;

namespace {

class TabStops {
public:
    TabStops(HDC context, int count, const INT *positions)
        : count_(positions ? std::max(count, 0) : 0), positions_(positions)
    {
        TEXTMETRICA metrics{};
        GetTextMetricsA(context, &metrics);
        constexpr int64_t usualCharacters = 8;
        usual_ = std::max<int64_t>(metrics.tmAveCharWidth * usualCharacters, 1);
        if (count_ == 1 && positions_[0] != 0) {
            usual_ = std::abs(int64_t{positions_[0]});
            isUsualRight_ = positions_[0] < 0;
            count_ = 0;
        }
    }

    struct Stop {
        int64_t position;
        bool isRight; // text ends at it
    };

    // The next stop behind x, counted from the tabs' origin.
    Stop after(int64_t x) const
    {
        for (int i = 0; i < count_; ++i) {
            int64_t position = std::abs(int64_t{positions_[i]});
            if (position > x)
                return {position, positions_[i] < 0};
        }
        return {(x / usual_ + (x >= 0 ? 1 : 0)) * usual_, isUsualRight_};
    }

private:
    int count_;
    const INT *positions_;
    int64_t usual_;
    bool isUsualRight_ = false;
};

// Calls put(offset, piece) for each piece between tabs. The result is what GetTabbedTextExtentA gives.
template <class Put>
DWORD layOut(HDC context, std::string_view text, const TabStops &stops, int64_t fromOrigin, Put put)
{
    int64_t x = 0;
    TabStops::Stop stop{fromOrigin, false}; // the first piece stands at the start
    LONG height = 0;
    while (true) {
        size_t tab = text.find('\t');
        std::string_view piece = text.substr(0, tab);
        SIZE extent{};
        if (!GetTextExtentPoint32A(context, piece.data(), static_cast<int>(piece.size()), &extent))
            return 0;
        if (stop.isRight)
            x = std::max(stop.position - fromOrigin - extent.cx, x);
        else
            x = std::max(stop.position - fromOrigin, x);
        x = std::clamp<int64_t>(x, 0, INT_MAX);
        put(static_cast<int>(x), piece);
        x = std::min<int64_t>(x + extent.cx, INT_MAX);
        height = std::max(height, extent.cy);
        if (tab == std::string_view::npos)
            break;
        stop = stops.after(x + fromOrigin);
        text.remove_prefix(tab + 1);
    }
    return static_cast<DWORD>(MAKELONG(x, height));
}

} // namespace

DWORD GetTabbedTextExtentA(HDC context, LPCSTR text, int count, int stops, const INT *positions)
{
    if (!text || count < 0)
        return fail(ERROR_INVALID_PARAMETER, 0u);
    return layOut(context, {text, static_cast<size_t>(count)}, TabStops(context, stops, positions), 0,
                  [](int, std::string_view) {});
}

LONG TabbedTextOutA(HDC context, int x, int y, LPCSTR text, int count, int stops, const INT *positions, int origin)
{
    if (!text || count < 0)
        return fail(ERROR_INVALID_PARAMETER, 0);
    return static_cast<LONG>(layOut(context, {text, static_cast<size_t>(count)}, TabStops(context, stops, positions),
                                    int64_t{x} - origin, [&](int offset, std::string_view piece) {
                                        TextOutA(context, wrappingSum(x, offset), y, piece.data(),
                                                 static_cast<int>(piece.size()));
                                    }));
}
