// Plays random sequences of steps on a world, checks the world after each step, and shrinks a sequence that
// breaks a rule to the few steps that matter.
//
// A world is an object under test with its model: windows, controls, files. Its operations are numbered; a
// step is the number of one with some numbers as arguments, which the world reduces to what it has at that
// time (a row: numbers[0] % rows). So each sequence can be played on every state, and what is left when steps
// are dropped still can. Small numbers should be the simple cases: shrinking also tries 0.
//
// Sequence k of a run has the seed VELM_SEED + k, and starts with a new world. A failure prints its seed:
// with that as VELM_SEED, the run starts with the failing sequence. So does a crash or a hang, in the name of
// the running test that their reports show. VELM_TRACE=1 prints each step before it is played.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace randomplay
{

// Random numbers that are the same with every compiler (splitmix64).
class Random
{
public:
    explicit Random(uint64_t seed) : m_state(seed) {}
    uint64_t Next();
    // 0 to limit - 1; 0 for a limit of 0.
    uint32_t Below(uint32_t limit);

private:
    uint64_t m_state;
};

struct Step
{
    unsigned operation = 0;
    std::array<uint32_t, 4> numbers{};
    bool operator==(const Step&) const = default;
};

// The operations of a world: their index is Step::operation. One of weight 3 comes three times as often as
// one of weight 1.
struct Operation
{
    const char* name;
    unsigned weight;
};

class World
{
public:
    virtual ~World() = default;
    // Does one step and then checks the rules. Empty if all hold; else what the first broken one is, as
    // "kind: details". Two failures are the same if what stands before the first colon is.
    virtual std::string Play(const Step& step) = 0;
    // Called after the last step, unless one failed: ends what is still there and checks that.
    virtual std::string End() { return {}; }
};

struct Plan
{
    const char* name; // in the figure and in reports
    std::span<const Operation> operations;
    std::function<std::unique_ptr<World>()> make;
    unsigned long long steps; // in all; see testkit::ByDepth
    unsigned sequenceLength = 200;
};

struct Outcome
{
    unsigned long long played = 0; // steps, without those of shrinking
    bool failed = false;
    uint64_t seed = 0;          // of the failing sequence
    std::string message;        // of the shrunk sequence
    std::vector<Step> original; // up to and with the step that failed
    std::vector<Step> shrunk;
};

// The sequence of a seed.
std::vector<Step> MakeSequence(uint64_t seed, const Plan& plan);

// Plays a sequence on a new world. The message of the first failure, or empty; `played` becomes the number of
// steps done, with the failing one.
std::string PlaySequence(const Plan& plan, std::span<const Step> steps, size_t* played = nullptr);

// A sequence with the same failure from which no step can be dropped, and whose numbers are 0 where they can
// be; at least so far as some thousand plays lead.
std::vector<Step> Shrink(const Plan& plan, std::vector<Step> steps, const std::string& message);

// Plays sequences from `seed` on until the plan's steps are done or one fails, which it shrinks.
Outcome PlayAll(const Plan& plan, uint64_t seed);

// What a failure prints: seed, message and the shrunk steps, as C++ as well as by name.
std::string Describe(const Plan& plan, const Outcome& outcome);

// The whole test: runs from testkit::Seed() on, prints seed and the figure of steps, fails the running test
// if a sequence does.
void ExpectAllHold(const Plan& plan);

} // namespace randomplay
