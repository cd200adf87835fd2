// A variable in the environment of the programs that are started while it lives.
#pragma once

#include "kit/Platform.h"

#include <iterator>
#include <optional>
#include <string>

class ChildEnvironment
{
public:
    ChildEnvironment(const wchar_t* name, const wchar_t* value) : m_name(name)
    {
        wchar_t before[100] = L"";
        if (GetEnvironmentVariableW(name, before, std::size(before)) != 0) {
            m_before = before;
        }
        SetEnvironmentVariableW(name, value);
    }
    ~ChildEnvironment() { SetEnvironmentVariableW(m_name, m_before ? m_before->c_str() : nullptr); }
    ChildEnvironment(const ChildEnvironment&) = delete;
    ChildEnvironment& operator=(const ChildEnvironment&) = delete;

private:
    const wchar_t* m_name;
    std::optional<std::wstring> m_before;
};
