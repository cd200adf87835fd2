// What this process asks of the system: files opened, modules loaded, programs started.
#pragma once

#include <string>
#include <vector>

namespace hostile
{

// For as long as it lives, notes the calls of the whole process at the lowest place where modules make them,
// by replacing what the platform's own libraries import. One at a time.
class SystemCalls
{
public:
    SystemCalls();
    ~SystemCalls();
    SystemCalls(const SystemCalls&) = delete;
    SystemCalls& operator=(const SystemCalls&) = delete;

    // False where the platform's libraries do not make these calls in the known way.
    bool IsWatching() const { return m_isWatching; }

    // Files and devices, sockets too, as the system's own names.
    const std::vector<std::wstring>& Opened() const { return s_opened; }
    // Modules that were asked for, as their names were given.
    const std::vector<std::wstring>& Loaded() const { return s_loaded; }
    int Started() const { return s_started; }

    // Forgets what was noted.
    void Clear();

private:
    friend struct Replacements;

    static inline std::vector<std::wstring> s_opened;
    static inline std::vector<std::wstring> s_loaded;
    static inline int s_started = 0;

    bool m_isWatching = false;
};

} // namespace hostile
