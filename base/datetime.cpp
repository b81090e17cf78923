#include "base/datetime.h"

#include <initializer_list>
#include <windows.h>

#include "streams/stream.h"

namespace {

unsigned short Cut(const vINT& number)
{
    return static_cast<unsigned short>(number());
}

// A month out of range, as a wrapped difference may hold, has no name.
const char* MonthName(unsigned short month)
{
    static const char* const names[] = {
        "January", "February", "March", "April", "May", "June",
        "July", "August", "September", "October", "November", "December",
    };
    return month >= 1 && month <= 12 ? names[month - 1] : "";
}

}  // namespace

vDATETIME::vDATETIME(const vINT& day, const vINT& month, const vINT& year,
                     const vINT& hour, const vINT& minute, const vINT& second)
    : year(Cut(year)), month(Cut(month)), day(Cut(day)),
      hour(Cut(hour)), minute(Cut(minute)), second(Cut(second))
{
}

vDATETIME::vDATETIME()
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    year = now.wYear;
    month = now.wMonth;
    day = now.wDay;
    hour = now.wHour;
    minute = now.wMinute;
    second = now.wSecond;
}

vINT vDATETIME::Year() const
{
    return year;
}

vINT vDATETIME::Month() const
{
    return month;
}

vINT vDATETIME::Day() const
{
    return day;
}

vINT vDATETIME::Hour() const
{
    return hour;
}

vINT vDATETIME::Minute() const
{
    return minute;
}

vINT vDATETIME::Second() const
{
    return second;
}

// No borrow passes between fields: a difference is six separate differences.
vDATETIME& vDATETIME::operator-(const vDATETIME& other)
{
    year -= other.year;
    month -= other.month;
    day -= other.day;
    hour -= other.hour;
    minute -= other.minute;
    second -= other.second;
    return *this;
}

int vDATETIME::operator==(const vDATETIME& other) const
{
    return year == other.year && month == other.month && day == other.day &&
           hour == other.hour && minute == other.minute && second == other.second;
}

int vDATETIME::operator!=(const vDATETIME& other) const
{
    return !(*this == other);
}

int vDATETIME::operator>(const vDATETIME& other) const
{
    const unsigned short mine[] = {year, month, day, hour, minute, second};
    const unsigned short theirs[] = {other.year, other.month, other.day,
                                     other.hour, other.minute, other.second};
    for (int field = 0; field < 6; ++field) {
        if (mine[field] != theirs[field])
            return mine[field] > theirs[field];
    }
    return 0;
}

int vDATETIME::operator<(const vDATETIME& other) const
{
    return *this != other && !(*this > other);
}

int vDATETIME::operator>=(const vDATETIME& other) const
{
    return *this == other || *this > other;
}

int vDATETIME::operator<=(const vDATETIME& other) const
{
    return *this == other || *this < other;
}

vSTRING vDATETIME::FullDate() const
{
    return vSTRING("%d %s %d", day, MonthName(month), year);
}

// Midnight and noon are both 12, told apart by am and pm.
vSTRING vDATETIME::Time12() const
{
    int clock = hour % 12 == 0 ? 12 : hour % 12;
    return vSTRING("%d:%02d:%02d %s", clock, minute, second, hour < 12 ? "am" : "pm");
}

vSTRING vDATETIME::Stamp() const
{
    return vSTRING("%s %s", Time12()(), FullDate()());
}

// Six words in field order: year, month, day, hour, minute, second.
vSTREAM& vDATETIME::operator>>(vSTREAM& stream) const
{
    for (unsigned short field : {year, month, day, hour, minute, second})
        stream.WriteUWord(field);
    return stream;
}

vSTREAM& vDATETIME::operator<<(vSTREAM& stream)
{
    for (unsigned short* field : {&year, &month, &day, &hour, &minute, &second})
        *field = stream.ReadUWord();
    return stream;
}
