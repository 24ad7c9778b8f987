// The international resources, as private copies that live on.
#include <mtbx/MacMemory.h>
#include <mtbx/Resources.h>
#include <mtbx/Script.h>

#include <algorithm>
#include <cstring>

namespace {

// A cell that serves as a handle. A resource that is missing at the first question stays so.
template <size_t size> class IntlResource {
public:
    Handle get(ResType type)
    {
        if (isAsked_)
            return &copy_;
        isAsked_ = true;
        constexpr SInt16 id = 128;
        Handle resource = GetResource(type, id);
        if (resource && *resource) {
            memcpy(data_, *resource, std::min(size, static_cast<size_t>(GetHandleSize(resource))));
            ReleaseResource(resource);
            copy_ = data_;
        }
        return &copy_;
    }

private:
    bool isAsked_ = false;
    Ptr copy_ = nullptr;
    char data_[size]{};
};

constexpr ResType numberFormats = 0x69746C30; // 'itl0'
constexpr ResType dateFormats = 0x69746C31;   // 'itl1'

IntlResource<32> numbers;
IntlResource<332> dates;

} // namespace

Handle GetIntlResource(SInt16 id)
{
    return id == 1 ? dates.get(dateFormats) : numbers.get(numberFormats);
}
