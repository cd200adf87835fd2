// What the process holds, of all kinds that are counted.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace lifecycle
{

// A kind of what is held, and its counter.
struct Kind
{
    const char* name;
    long long (*count)();
};

inline constexpr size_t KindCount = 14;
extern const std::array<Kind, KindCount> Kinds;

// Starts all counters that need it, the first time; false if one cannot count. All modules under test must be
// loaded.
bool StartCounting();

using Holdings = std::array<long long, KindCount>;

// Handles the messages that wait and lets MFC drop its temporary objects, then counts.
Holdings HoldingsNow();
// One of them.
long long HoldingNow(const char* name);

// "heap blocks 0, GDI objects +1, ...".
std::string Growth(const Holdings& before, const Holdings& after);

} // namespace lifecycle
