// File times, and the calendar that they stand for.
#include "file_time.h"

#include "kernel_internal.h"

namespace win32 {
namespace {

constexpr int64_t stepsPerSecond = 10'000'000;
constexpr int64_t stepsPerDay = stepsPerSecond * 86400;
constexpr int64_t unixEpoch = 11'644'473'600; // seconds from 1601 to 1970

constexpr int64_t steps(const FILETIME &time)
{
    return static_cast<int64_t>(static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime);
}

constexpr FILETIME fromSteps(int64_t count)
{
    return {static_cast<DWORD>(count), static_cast<DWORD>(static_cast<uint64_t>(count) >> 32)};
}

struct Date {
    int64_t year;
    unsigned month, day;
};

// Days from 1 January 1601 of a date, in the calendar that reaches back beyond its introduction. Years
// are counted from March, so that the leap day is the last one.
constexpr int64_t daysFromDate(Date date)
{
    int64_t year = date.year - (date.month <= 2);
    int64_t era = year / 400;
    int64_t yearOfEra = year - era * 400;
    int64_t dayOfYear = (153 * (static_cast<int64_t>(date.month) + (date.month > 2 ? -3 : 9)) + 2) / 5 + date.day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 584694;
}
static_assert(daysFromDate({1601, 1, 1}) == 0);
static_assert(daysFromDate({1970, 1, 1}) == unixEpoch / 86400);

constexpr Date dateFromDays(int64_t days)
{
    days += 584694;
    int64_t era = days / 146097;
    int64_t dayOfEra = days - era * 146097;
    int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
    auto month = static_cast<unsigned>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    return {yearOfEra + era * 400 + (month <= 2), month,
            static_cast<unsigned>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1)};
}

unsigned daysInMonth(WORD year, WORD month)
{
    Date next = month == 12 ? Date{year + 1, 1, 1} : Date{year, month + 1u, 1};
    return static_cast<unsigned>(daysFromDate(next) - daysFromDate({year, month, 1}));
}

bool isValid(const SYSTEMTIME &time)
{
    return time.wYear >= 1601 && time.wYear <= 30827 && time.wMonth >= 1 && time.wMonth <= 12 && time.wDay >= 1
           && time.wDay <= daysInMonth(time.wYear, time.wMonth) && time.wHour < 24 && time.wMinute < 60
           && time.wSecond < 60 && time.wMilliseconds < 1000;
}

// Seconds by which local time is ahead now. The zone's present rule serves for all times, in summer and
// winter alike, as Win32 has it.
int64_t zoneOffset()
{
    // A zone changes its offset at full minutes only.
    thread_local int64_t knownMinute = -1, knownOffset = 0;
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    if (now.tv_sec / 60 != knownMinute) {
        tm parts{};
        tzset();
        localtime_r(&now.tv_sec, &parts);
        knownMinute = now.tv_sec / 60;
        knownOffset = parts.tm_gmtoff;
    }
    return knownOffset;
}

SYSTEMTIME systemTimeNow(int64_t offset)
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    now.tv_sec += static_cast<time_t>(offset);
    FILETIME time = fileTimeFrom(now);
    SYSTEMTIME result{};
    FileTimeToSystemTime(&time, &result);
    return result;
}

BOOL shifted(const FILETIME *time, int64_t seconds, LPFILETIME result)
{
    // Times at the very ends wrap, as they do everywhere in Win32.
    *result = fromSteps(
        static_cast<int64_t>(static_cast<uint64_t>(steps(*time)) + static_cast<uint64_t>(seconds * stepsPerSecond)));
    return TRUE;
}

} // namespace

FILETIME fileTimeFrom(const timespec &time)
{
    uint64_t seconds = static_cast<uint64_t>(time.tv_sec) + unixEpoch;
    return fromSteps(static_cast<int64_t>(seconds * stepsPerSecond + static_cast<uint64_t>(time.tv_nsec) / 100));
}

timespec timespecFrom(const FILETIME &time)
{
    auto count = static_cast<uint64_t>(steps(time));
    int64_t seconds = static_cast<int64_t>(count / stepsPerSecond) - unixEpoch;
    return {static_cast<time_t>(seconds), static_cast<long>(count % stepsPerSecond * 100)};
}

} // namespace win32

using namespace win32;

void GetLocalTime(LPSYSTEMTIME time)
{
    *time = systemTimeNow(zoneOffset());
}

void GetSystemTime(LPSYSTEMTIME time)
{
    *time = systemTimeNow(0);
}

void GetSystemTimeAsFileTime(LPFILETIME time)
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    *time = fileTimeFrom(now);
}

BOOL FileTimeToSystemTime(const FILETIME *fileTime, LPSYSTEMTIME systemTime)
{
    int64_t count = steps(*fileTime);
    if (count < 0)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    int64_t days = count / stepsPerDay;
    int64_t milliseconds = count % stepsPerDay / (stepsPerSecond / 1000);
    Date date = dateFromDays(days);
    *systemTime = {static_cast<WORD>(date.year),
                   static_cast<WORD>(date.month),
                   static_cast<WORD>((days + 1) % 7), // 1 January 1601 was a Monday
                   static_cast<WORD>(date.day),
                   static_cast<WORD>(milliseconds / 3'600'000),
                   static_cast<WORD>(milliseconds / 60'000 % 60),
                   static_cast<WORD>(milliseconds / 1000 % 60),
                   static_cast<WORD>(milliseconds % 1000)};
    return TRUE;
}

BOOL SystemTimeToFileTime(const SYSTEMTIME *systemTime, LPFILETIME fileTime)
{
    if (!isValid(*systemTime))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    int64_t days = daysFromDate({systemTime->wYear, systemTime->wMonth, systemTime->wDay});
    int64_t seconds = (systemTime->wHour * 60 + systemTime->wMinute) * 60 + systemTime->wSecond;
    *fileTime =
        fromSteps(days * stepsPerDay + seconds * stepsPerSecond + systemTime->wMilliseconds * (stepsPerSecond / 1000));
    return TRUE;
}

BOOL FileTimeToLocalFileTime(const FILETIME *fileTime, LPFILETIME localFileTime)
{
    return shifted(fileTime, zoneOffset(), localFileTime);
}

BOOL LocalFileTimeToFileTime(const FILETIME *localFileTime, LPFILETIME fileTime)
{
    return shifted(localFileTime, -zoneOffset(), fileTime);
}

LONG CompareFileTime(const FILETIME *left, const FILETIME *right)
{
    auto first = static_cast<uint64_t>(steps(*left)), second = static_cast<uint64_t>(steps(*right));
    return first < second ? -1 : first > second;
}
