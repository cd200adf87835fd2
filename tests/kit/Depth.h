// How long a test of chance or of repetition runs: short in every run of the tests, long in the deep one,
// which the environment asks for (VELM_DEEP=1). What such a test measured is printed as a figure.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace testkit
{

// True when VELM_DEEP is set in the environment to anything but nothing and "0".
bool IsDeep();

// `brief`, or `deep` in the deep run: how often something is done.
unsigned long long ByDepth(unsigned long long brief, unsigned long long deep);

// Where chance starts: VELM_SEED of the environment as a decimal number, else 1. Tests print it with what
// they found, so that the same run can be made again.
uint64_t Seed();

// Prints one line "FIGURE name: value", which the deep run collects. Whole numbers are grouped by commas.
void Figure(std::string_view name, const std::string& value);
void Figure(std::string_view name, unsigned long long value);

} // namespace testkit
