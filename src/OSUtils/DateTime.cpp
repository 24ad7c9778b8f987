// Seconds since midnight of 1 January 1904, local time, and the calendar.
#include <mtbx/MTBXEnvironment.h>
#include <mtbx/OSUtils.h>

namespace {

constexpr SInt32 firstYear = 1904;
constexpr UInt32 secondsPerDay = 86400;

constexpr bool isLeap(SInt32 year)
{
    return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
}

// Leap years from the beginning of the calendar up to the year, without it.
constexpr SInt32 leapYearsBefore(SInt32 year)
{
    SInt32 last = year - 1;
    return last / 4 - last / 100 + last / 400;
}

constexpr SInt32 daysInYear(SInt32 year)
{
    return isLeap(year) ? 366 : 365;
}

// Months count from 1; one outside the year has no days.
constexpr SInt32 daysInMonth(SInt32 year, SInt32 month)
{
    constexpr SInt32 lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    return month == 2 && isLeap(year) ? 29 : lengths[month - 1];
}

// Fields are not tested: what is too large just adds up. The sum wraps at 32 bits.
UInt32 secondsFrom(const DateTimeRec &date)
{
    SInt32 year = date.year > firstYear ? date.year : firstYear;
    auto days = static_cast<UInt32>((year - firstYear) * 365 + leapYearsBefore(year) - leapYearsBefore(firstYear));
    for (SInt32 month = 1; month < date.month; ++month)
        days += static_cast<UInt32>(daysInMonth(date.year, month));
    days += static_cast<UInt32>(date.day - 1);
    return ((days * 24 + static_cast<UInt32>(date.hour)) * 60 + static_cast<UInt32>(date.minute)) * 60
           + static_cast<UInt32>(date.second);
}

} // namespace

void DateToSeconds(const DateTimeRec *date, UInt32 *seconds)
{
    *seconds = secondsFrom(*date);
}

void SecondsToDate(UInt32 seconds, DateTimeRec *date)
{
    constexpr SInt32 fridayFirst = 5; // 1 January 1904, with Sunday as 0
    auto days = static_cast<SInt32>(seconds / secondsPerDay);
    date->dayOfWeek = static_cast<SInt16>((days + fridayFirst) % 7 + 1);
    SInt32 year = firstYear;
    for (; days >= daysInYear(year); ++year)
        days -= daysInYear(year);
    SInt32 month = 1;
    for (; days >= daysInMonth(year, month); ++month)
        days -= daysInMonth(year, month);
    date->year = static_cast<SInt16>(year);
    date->month = static_cast<SInt16>(month);
    date->day = static_cast<SInt16>(days + 1);
    date->hour = static_cast<SInt16>(seconds / 3600 % 24);
    date->minute = static_cast<SInt16>(seconds / 60 % 60);
    date->second = static_cast<SInt16>(seconds % 60);
}

void GetDateTime(UInt32 *seconds)
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    DateTimeRec date = {static_cast<SInt16>(now.wYear),         static_cast<SInt16>(now.wMonth),
                        static_cast<SInt16>(now.wDay),          static_cast<SInt16>(now.wHour),
                        static_cast<SInt16>(now.wMinute),       static_cast<SInt16>(now.wSecond),
                        static_cast<SInt16>(now.wDayOfWeek + 1)};
    *seconds = secondsFrom(date);
}

void GetTime(DateTimeRec *date)
{
    UInt32 seconds;
    GetDateTime(&seconds);
    SecondsToDate(seconds, date);
}

SInt32 NGetTrapAddress(UInt16, SInt8)
{
    StubError("OSUtils", "NGetTrapAddress");
    return 0;
}

void NSetTrapAddress(void *, UInt16, SInt8)
{
    StubError("OSUtils", "NSetTrapAddress");
}

OSErr NMInstall(void *)
{
    return 0;
}

SInt32 SetA5(SInt32)
{
    return 0;
}

SInt32 SetCurrentA5()
{
    return 0;
}
