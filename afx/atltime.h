// CTime: a point in time, as files carry it. Included by afxfile_.h.
#pragma once

#include "afxver_.h"

#include <ctime>

// Seconds since the start of 1970, universal time; 0 stands for "no time".
class CTime
{
public:
    CTime() noexcept : m_time(0) {}
    CTime(__time64_t time) noexcept : m_time(time) {}
    CTime(const FILETIME& fileTime) noexcept : m_time(FromTicks(fileTime)) {}

    static CTime WINAPI GetCurrentTime() noexcept { return CTime(_time64(NULL)); }
    __time64_t GetTime() const noexcept { return m_time; }
    FILETIME GetAsFileTime() const noexcept
    {
        const ULONGLONG ticks = (m_time + SecondsTo1970) * TicksPerSecond;
        FILETIME fileTime;
        fileTime.dwLowDateTime = DWORD(ticks);
        fileTime.dwHighDateTime = DWORD(ticks >> 32);
        return fileTime;
    }

    bool operator==(CTime time) const noexcept { return m_time == time.m_time; }
    bool operator!=(CTime time) const noexcept { return m_time != time.m_time; }
    bool operator<(CTime time) const noexcept { return m_time < time.m_time; }
    bool operator>(CTime time) const noexcept { return m_time > time.m_time; }
    bool operator<=(CTime time) const noexcept { return m_time <= time.m_time; }
    bool operator>=(CTime time) const noexcept { return m_time >= time.m_time; }

private:
    static constexpr LONGLONG TicksPerSecond = 10000000;
    static constexpr LONGLONG SecondsTo1970 = 11644473600;
    static __time64_t FromTicks(const FILETIME& fileTime) noexcept
    {
        const ULONGLONG ticks = (ULONGLONG(fileTime.dwHighDateTime) << 32) | fileTime.dwLowDateTime;
        return ticks == 0 ? 0 : __time64_t(ticks / TicksPerSecond) - SecondsTo1970;
    }

    __time64_t m_time;
};
