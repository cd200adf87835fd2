#include "kit/Depth.h"

#include <cstdio>
#include <cstdlib>

namespace testkit
{

bool IsDeep()
{
    const char* const value = std::getenv("VELM_DEEP");
    return value && *value && std::string_view(value) != "0";
}

unsigned long long ByDepth(unsigned long long brief, unsigned long long deep)
{
    return IsDeep() ? deep : brief;
}

uint64_t Seed()
{
    const char* const value = std::getenv("VELM_SEED");
    const uint64_t seed = value ? std::strtoull(value, nullptr, 10) : 0;
    return seed ? seed : 1;
}

void Figure(std::string_view name, const std::string& value)
{
    std::printf("FIGURE %.*s: %s\n", static_cast<int>(name.size()), name.data(), value.c_str());
    std::fflush(stdout);
}

void Figure(std::string_view name, unsigned long long value)
{
    std::string text = std::to_string(value);
    for (size_t i = text.size(); i > 3; i -= 3) {
        text.insert(i - 3, 1, ',');
    }
    Figure(name, text);
}

} // namespace testkit
