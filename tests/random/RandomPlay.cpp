#include "RandomPlay.h"

#include "kit/CurrentTest.h"
#include "kit/Depth.h"
#include "kit/Watchdog.h"

#include <gtest/gtest.h>

#include <afxwin.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <numeric>

namespace randomplay
{
namespace
{

constexpr unsigned MostPlays = 4000; // of one shrinking
constexpr size_t MostStepsForPairs = 30;
constexpr unsigned SecondsOfSequence = 60;

std::string Kind(const std::string& message)
{
    return message.substr(0, message.find(':'));
}

bool Traces()
{
    static const bool traces = std::getenv("VELM_TRACE") != nullptr;
    return traces;
}

std::string Text(const Plan& plan, const Step& step)
{
    char text[200];
    std::snprintf(text, sizeof text, "{%u, {%lu, %lu, %lu, %lu}}, // %s", step.operation,
                  static_cast<unsigned long>(step.numbers[0]), static_cast<unsigned long>(step.numbers[1]),
                  static_cast<unsigned long>(step.numbers[2]), static_cast<unsigned long>(step.numbers[3]),
                  plan.operations[step.operation].name);
    return text;
}

// Names the running test so that the report of a crash or of a hang shows where the play was.
class Place
{
public:
    Place() : m_name(testkit::CurrentTest()) {}
    ~Place() { Set(""); }
    void AtSequence(uint64_t seed) { m_seed = seed; }
    void AtStep(size_t step, bool isShrinking)
    {
        char text[100];
        std::snprintf(text, sizeof text, " (VELM_SEED=%llu, step %llu%s)",
                      static_cast<unsigned long long>(m_seed), static_cast<unsigned long long>(step),
                      isShrinking ? ", while shrinking" : "");
        Set(text);
    }

private:
    void Set(const char* where) const
    {
        const size_t dot = m_name.find('.');
        const std::string test = (dot == std::string::npos ? m_name : m_name.substr(dot + 1)) + where;
        testkit::SetCurrentTest(m_name.substr(0, dot).c_str(), test.c_str());
    }

    std::string m_name;
    uint64_t m_seed = 0;
};

Place* g_place = nullptr; // of the run under way; shrinking and replays by hand have none
bool g_isShrinking = false;

std::string PlayStep(const Plan& plan, World& world, const Step& step, size_t index)
{
    if (g_place) {
        g_place->AtStep(index, g_isShrinking);
    }
    if (Traces()) {
        std::printf("%4llu: %s\n", static_cast<unsigned long long>(index), Text(plan, step).c_str());
        std::fflush(stdout);
    }
    return world.Play(step);
}

// What failed, where an exception is a failure as well.
template <class Call>
std::string Guarded(const Call& call)
{
    try {
        return call();
    } catch (const std::exception& exception) {
        return std::string("exception: ") + exception.what();
    } catch (CException* exception) {
        exception->Delete();
        return "exception: of MFC";
    }
}

class Shrinker
{
public:
    Shrinker(const Plan& plan, std::vector<Step> steps, const std::string& message)
        : m_plan(plan), m_steps(std::move(steps)), m_kind(Kind(message))
    {
    }

    std::vector<Step> Result()
    {
        for (bool isSmaller = true; isSmaller;) {
            isSmaller = false;
            for (size_t run = std::max<size_t>(m_steps.size() / 2, 1); run > 0; run /= 2) {
                isSmaller |= DropRuns(run);
            }
            if (!isSmaller && m_steps.size() <= MostStepsForPairs) {
                isSmaller = DropAPair();
            }
        }
        SimplifyNumbers();
        return m_steps;
    }

private:
    // Takes over a candidate that still fails, without what comes after its failure.
    bool Take(std::vector<Step> candidate)
    {
        if (m_plays >= MostPlays) {
            return false;
        }
        ++m_plays;
        size_t played = 0;
        if (Kind(PlaySequence(m_plan, candidate, &played)) != m_kind) {
            return false;
        }
        candidate.resize(played);
        m_steps = std::move(candidate);
        return true;
    }

    // From the end: the later steps more often stand on the earlier ones than the other way round.
    bool DropRuns(size_t run)
    {
        bool isSmaller = false;
        for (size_t end = m_steps.size(); end > 0;) {
            const size_t begin = end > run ? end - run : 0;
            std::vector<Step> candidate = m_steps;
            candidate.erase(candidate.begin() + static_cast<ptrdiff_t>(begin),
                            candidate.begin() + static_cast<ptrdiff_t>(end));
            isSmaller |= Take(std::move(candidate));
            end = std::min(begin, m_steps.size());
        }
        return isSmaller;
    }

    // Two steps that undo each other, wherever they are.
    bool DropAPair()
    {
        for (size_t second = 1; second < m_steps.size(); ++second) {
            for (size_t first = 0; first < second; ++first) {
                std::vector<Step> candidate = m_steps;
                candidate.erase(candidate.begin() + static_cast<ptrdiff_t>(second));
                candidate.erase(candidate.begin() + static_cast<ptrdiff_t>(first));
                if (Take(std::move(candidate))) {
                    return true;
                }
            }
        }
        return false;
    }

    void SimplifyNumbers()
    {
        for (size_t step = 0; step < m_steps.size(); ++step) {
            for (size_t number = 0; number < m_steps[step].numbers.size(); ++number) {
                for (const uint32_t simple : {0u, 1u, 2u, 3u, 5u}) {
                    std::vector<Step> candidate = m_steps;
                    if (candidate[step].numbers[number] <= simple) {
                        break;
                    }
                    candidate[step].numbers[number] = simple;
                    if (Take(std::move(candidate))) {
                        break;
                    }
                }
                if (step >= m_steps.size()) {
                    return; // it failed earlier with a simpler number
                }
            }
        }
    }

    const Plan& m_plan;
    std::vector<Step> m_steps;
    std::string m_kind;
    unsigned m_plays = 0;
};

} // namespace

uint64_t Random::Next()
{
    m_state += 0x9E3779B97F4A7C15ull;
    uint64_t value = m_state;
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9ull;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBull;
    return value ^ (value >> 31);
}

uint32_t Random::Below(uint32_t limit)
{
    return static_cast<uint32_t>(((Next() >> 32) * limit) >> 32);
}

std::vector<Step> MakeSequence(uint64_t seed, const Plan& plan)
{
    // Mixed once more, or the sequence of one seed would be that of the one before, a number later.
    Random random(Random(seed).Next());
    const unsigned total = std::accumulate(plan.operations.begin(), plan.operations.end(), 0u,
                                           [](unsigned sum, const Operation& o) { return sum + o.weight; });
    std::vector<Step> steps(plan.sequenceLength);
    for (Step& step : steps) {
        unsigned chosen = random.Below(total);
        while (chosen >= plan.operations[step.operation].weight) {
            chosen -= plan.operations[step.operation].weight;
            ++step.operation;
        }
        for (uint32_t& number : step.numbers) {
            number = static_cast<uint32_t>(random.Next() >> 32);
        }
    }
    return steps;
}

std::string PlaySequence(const Plan& plan, std::span<const Step> steps, size_t* played)
{
    testkit::AllowTime(SecondsOfSequence);
    return Guarded([&]() -> std::string {
        const std::unique_ptr<World> world = plan.make();
        for (size_t i = 0; i < steps.size(); ++i) {
            if (played) {
                *played = i + 1;
            }
            if (std::string message = PlayStep(plan, *world, steps[i], i); !message.empty()) {
                return message;
            }
        }
        return world->End();
    });
}

std::vector<Step> Shrink(const Plan& plan, std::vector<Step> steps, const std::string& message)
{
    return Shrinker(plan, std::move(steps), message).Result();
}

Outcome PlayAll(const Plan& plan, uint64_t seed)
{
    Outcome outcome;
    Place place;
    g_place = &place;
    for (; outcome.played < plan.steps && !outcome.failed; ++seed) {
        place.AtSequence(seed);
        std::vector<Step> steps = MakeSequence(seed, plan);
        size_t played = 0;
        outcome.message = PlaySequence(plan, steps, &played);
        outcome.played += played;
        if (!outcome.message.empty()) {
            outcome.failed = true;
            outcome.seed = seed;
            steps.resize(played);
            outcome.original = steps;
            g_isShrinking = true;
            outcome.shrunk = Shrink(plan, std::move(steps), outcome.message);
            if (std::string message = PlaySequence(plan, outcome.shrunk); !message.empty()) {
                outcome.message = std::move(message);
            }
            g_isShrinking = false;
        }
    }
    g_place = nullptr;
    return outcome;
}

std::string Describe(const Plan& plan, const Outcome& outcome)
{
    std::string text = std::string(plan.name) + ", VELM_SEED=" + std::to_string(outcome.seed) + ": " +
                       outcome.message + "\n" + std::to_string(outcome.original.size()) +
                       " steps, shrunk to " + std::to_string(outcome.shrunk.size()) + ":\n";
    for (const Step& step : outcome.shrunk) {
        text += "    " + Text(plan, step) + "\n";
    }
    return text;
}

void ExpectAllHold(const Plan& plan)
{
    const uint64_t seed = testkit::Seed();
    std::printf("%s: VELM_SEED=%llu\n", plan.name, static_cast<unsigned long long>(seed));
    std::fflush(stdout);
    const Outcome outcome = PlayAll(plan, seed);
    testkit::Figure(std::string("random steps, ") + plan.name, outcome.played);
    EXPECT_FALSE(outcome.failed) << Describe(plan, outcome);
}

} // namespace randomplay
