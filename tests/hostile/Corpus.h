// The documents that the mutants are made of.
#pragma once

#include <string>
#include <vector>

namespace hostile
{

struct Seed
{
    std::string name;
    std::string bytes;
};

// A longer document is left out, so that a mutant costs milliseconds.
constexpr size_t LongestSeed = 8 * 1024;

// Documents of other makers, which the system's packages brought; none where there is no list of them.
const std::vector<Seed>& ForeignDocuments();

// The descriptions of menus and toolbars that lie in the source tree, and the one that velmmenu writes.
const std::vector<Seed>& Descriptions();

} // namespace hostile
