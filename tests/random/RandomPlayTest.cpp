// The driver itself: the sequences of a seed, and what becomes of a sequence that breaks a rule.

#include "RandomPlay.h"

#include "kit/CurrentTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

using namespace randomplay;
using testing::HasSubstr;

namespace
{

// A counter that may be raised, lowered and, with every fourth number, locked. Planted faults: lowering it to
// exactly 3 while it is locked fails, raising it beyond 1,000 fails in another way, and operation Throw
// throws at 7.
class CounterWorld : public World
{
public:
    enum Operations
    {
        Raise,
        Lower,
        Lock,
        Throw
    };

    std::string Play(const Step& step) override
    {
        switch (step.operation) {
        case Raise:
            m_count += 1;
            return m_count > 1000 ? "too high: " + std::to_string(m_count) : "";
        case Lower:
            m_count -= 1;
            return m_isLocked && m_count == 3 ? "lowered to three: locked" : "";
        case Lock:
            m_isLocked = m_isLocked || step.numbers[0] % 4 == 3;
            return {};
        default:
            if (m_count == 7) {
                throw std::runtime_error("seven");
            }
            return {};
        }
    }

private:
    int m_count = 0;
    bool m_isLocked = false;
};

constexpr Operation CounterOperations[] = {{"Raise", 6}, {"Lower", 3}, {"Lock", 1}};
constexpr Operation ThrowingOperations[] = {{"Raise", 3}, {"Lower", 3}, {"Lock", 0}, {"Throw", 1}};

Plan CounterPlan(unsigned long long steps)
{
    return {"counter", CounterOperations, [] { return std::make_unique<CounterWorld>(); }, steps, 100};
}

TEST(RandomPlayTest, NumbersAreTheSameWithEveryCompiler)
{
    Random random(1234567);
    EXPECT_EQ(random.Next(), 6457827717110365317ull);
    EXPECT_EQ(random.Next(), 3203168211198807973ull);
    EXPECT_EQ(random.Next(), 9817491932198370423ull);
}

TEST(RandomPlayTest, NumbersBelowALimitAllComeUpAndNoOther)
{
    Random random(1);
    std::array<int, 5> counts{};
    for (int i = 0; i < 5000; ++i) {
        const uint32_t number = random.Below(5);
        ASSERT_LT(number, 5u);
        ++counts[number];
    }
    EXPECT_THAT(counts, testing::Each(testing::AllOf(testing::Gt(800), testing::Lt(1200))));
    EXPECT_EQ(random.Below(0), 0u);
}

TEST(RandomPlayTest, ASeedAlwaysGivesTheSameSequenceAndItsNeighbourAnother)
{
    const Plan plan = CounterPlan(100);
    const std::vector<Step> steps = MakeSequence(5, plan);
    EXPECT_EQ(steps.size(), 100u);
    EXPECT_EQ(steps, MakeSequence(5, plan));
    const std::vector<Step> next = MakeSequence(6, plan);
    EXPECT_FALSE(std::equal(next.begin(), next.end() - 1, steps.begin() + 1)); // nor the same, shifted
    EXPECT_NE(steps, next);
}

TEST(RandomPlayTest, OperationsComeAsOftenAsTheirWeightSays)
{
    Plan plan = CounterPlan(10000);
    plan.sequenceLength = 10000;
    std::array<int, 3> counts{};
    for (const Step& step : MakeSequence(1, plan)) {
        ++counts.at(step.operation);
    }
    EXPECT_NEAR(counts[CounterWorld::Raise], 6000, 300);
    EXPECT_NEAR(counts[CounterWorld::Lower], 3000, 300);
    EXPECT_NEAR(counts[CounterWorld::Lock], 1000, 300);
}

TEST(RandomPlayTest, APlantedFaultIsFoundAndShrunkToTheFewestSteps)
{
    const Plan plan = CounterPlan(10000);
    const Outcome outcome = PlayAll(plan, 1);
    ASSERT_TRUE(outcome.failed);
    EXPECT_EQ(outcome.message, "lowered to three: locked");
    // Four raises, one lock in any place before the end, one lowering from 4 to 3.
    ASSERT_EQ(outcome.shrunk.size(), 6u) << Describe(plan, outcome);
    EXPECT_EQ(outcome.shrunk.back(), (Step{CounterWorld::Lower, {}}));
    EXPECT_THAT(outcome.shrunk, testing::Contains(Step{CounterWorld::Raise, {}}).Times(4));
    EXPECT_THAT(outcome.shrunk, testing::Contains(Step{CounterWorld::Lock, {3, 0, 0, 0}}));
    EXPECT_GT(outcome.original.size(), 6u);
    const std::string text = Describe(plan, outcome);
    EXPECT_THAT(text, HasSubstr("VELM_SEED=" + std::to_string(outcome.seed) + ": lowered to three: locked"));
    EXPECT_THAT(text, HasSubstr("{1, {0, 0, 0, 0}}, // Lower\n"));
}

TEST(RandomPlayTest, TheSeedOfAFailureStartsWithTheFailure)
{
    const Plan plan = CounterPlan(10000);
    const Outcome outcome = PlayAll(plan, 1), again = PlayAll(plan, outcome.seed);
    EXPECT_EQ(again.seed, outcome.seed);
    EXPECT_EQ(again.played, outcome.original.size());
    EXPECT_EQ(again.original, outcome.original);
}

TEST(RandomPlayTest, OneFailureIsNotShrunkToAnother)
{
    const Plan plan = CounterPlan(0);
    std::vector<Step> steps(1100, Step{CounterWorld::Raise, {}});
    steps.insert(steps.begin() + 50, Step{CounterWorld::Lock, {3}});
    const std::string message = PlaySequence(plan, steps);
    EXPECT_EQ(message, "too high: 1001");
    const std::vector<Step> shrunk = Shrink(plan, steps, message);
    EXPECT_EQ(shrunk.size(), 1001u);
    EXPECT_EQ(PlaySequence(plan, shrunk), message);
}

TEST(RandomPlayTest, AnExceptionIsAFailureAndIsShrunkAsWell)
{
    Plan plan = CounterPlan(10000);
    plan.operations = ThrowingOperations;
    const Outcome outcome = PlayAll(plan, 1);
    ASSERT_TRUE(outcome.failed);
    EXPECT_EQ(outcome.message, "exception: seven");
    EXPECT_EQ(outcome.shrunk.size(), 8u) << Describe(plan, outcome); // seven raises, and the throw
}

TEST(RandomPlayTest, TheNameOfTheRunningTestSaysWhereThePlayIs)
{
    class Asking : public World
    {
    public:
        explicit Asking(std::vector<std::string>& names) : m_names(names) {}
        std::string Play(const Step&) override
        {
            m_names.push_back(testkit::CurrentTest());
            return {};
        }

    private:
        std::vector<std::string>& m_names;
    };
    const std::string before = testkit::CurrentTest();
    std::vector<std::string> names;
    Plan plan = CounterPlan(3);
    plan.sequenceLength = 2;
    plan.make = [&] { return std::make_unique<Asking>(names); };
    PlayAll(plan, 7);
    EXPECT_THAT(names,
                testing::ElementsAre(before + " (VELM_SEED=7, step 0)", before + " (VELM_SEED=7, step 1)",
                                     before + " (VELM_SEED=8, step 0)", before + " (VELM_SEED=8, step 1)"));
    EXPECT_EQ(testkit::CurrentTest(), before);
}

TEST(RandomPlayTest, AWorldThatHoldsIsPlayedToTheEndOfThePlan)
{
    class Sound : public World
    {
    public:
        explicit Sound(int& ends) : m_ends(ends) {}
        std::string Play(const Step&) override { return {}; }
        std::string End() override
        {
            ++m_ends;
            return {};
        }

    private:
        int& m_ends;
    };
    int ends = 0;
    Plan plan = CounterPlan(1000);
    plan.make = [&] { return std::make_unique<Sound>(ends); };
    const Outcome outcome = PlayAll(plan, 1);
    EXPECT_FALSE(outcome.failed);
    EXPECT_EQ(outcome.played, 1000u);
    EXPECT_EQ(ends, 10);
}

} // namespace
