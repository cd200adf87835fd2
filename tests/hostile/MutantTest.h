// Runs of many mutants, each of which must come to nothing bad.
#pragma once

#include <VelmUtil22.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Corpus.h"
#include "HostProgram.h"
#include "Mutator.h"
#include "kit/Depth.h"
#include "kit/Watchdog.h"

namespace hostile
{

class MutantTest : public testing::Test
{
protected:
    MutantTest() { (void)CoInitialize(nullptr); }
    ~MutantTest() override { CoUninitialize(); }

    // Calls `check` with `count` mutants of that kind, one after the other, and stops at the first that fails
    // the test. Every second one is made of a description, where `check` does not want descriptions alone.
    // Each has the watchdog's usual time.
    template <class Check>
    void ForMutants(MutationKind kind, unsigned long long count, bool onlyDescriptions, Check check)
    {
        const uint64_t seed = testkit::Seed();
        std::printf("VELM_SEED=%llu, %llu mutants\n", static_cast<unsigned long long>(seed), count);
        Mutator mutator(seed * 16 + static_cast<uint64_t>(kind) * 2 + onlyDescriptions);
        for (unsigned long long i = 0; i < count && !HasFailure(); ++i) {
            testkit::AllowTime(testkit::DefaultWatchdogSeconds);
            const bool isForeign = !onlyDescriptions && i % 2 == 0 && !ForeignDocuments().empty();
            const std::vector<Seed>& seeds = isForeign ? ForeignDocuments() : Descriptions();
            const Seed& document = seeds[mutator.Below(seeds.size())];
            const Seed& other = seeds[mutator.Below(seeds.size())];
            const std::string mutant = mutator.Mutate(kind, document.bytes, other.bytes);
            SCOPED_TRACE("mutant " + std::to_string(i) + " of " + document.name + ", " +
                         std::to_string(mutant.size()) + " bytes");
            check(mutant, i);
            if (HasFailure())
                Keep(mutant);
        }
    }

    // Prints the mutant that failed.
    static void Keep(const std::string& mutant)
    {
        std::printf("---- the mutant:\n%s\n----\n", mutant.substr(0, 4000).c_str());
    }

    // Prints a figure of the running suite.
    static void Figure(const std::string& name, unsigned long long value)
    {
        testkit::Figure(testing::UnitTest::GetInstance()->current_test_suite()->name() + (": " + name),
                        value);
    }

    void ExpectNoMessage() { EXPECT_THAT(Host().TakeMessages(), testing::IsEmpty()); }
};

} // namespace hostile
