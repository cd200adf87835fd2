// A harness for benchmarks that compare the library with the platform calls that one would write by
// hand, in the same run of the same program.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench
{

// A piece of work that is timed. `run` does it and returns how many units it did (entries, pieces);
// the harness divides the time by that number and checks that it is `units`.
struct Work
{
    std::function<size_t()> run;
    size_t units = 1;
    // Called before each run, outside the measured time. May be empty.
    std::function<void()> prepare;
};

struct Row
{
    std::string name;
    std::string unit; // of what `run` counts, for the table
    Work ours;
    Work beside;
    // The greatest ratio, ours to beside, of the time per unit that is still "ok".
    double bound;
    // What else there is to say of the row once it has run, printed below it. May be empty.
    std::function<std::string()> note = {};
};

// The rows of the program, in the order in which they registered.
std::vector<Row>& Rows();

// Registers a row before main:  static const bench::Registration row{{ ... }};
struct Registration
{
    explicit Registration(Row row) { Rows().push_back(std::move(row)); }
};

struct Result
{
    double ours = 0;     // median time per unit, in microseconds
    double beside = 0;   // the same
    double ratio = 0;    // median of the rounds' ratios, ours to beside
    std::string problem; // why the row counts for nothing; empty if it counts
};

// Runs both works of a row alternately, `rounds` times each after one that does not count, and takes the
// medians. The ratio is that of runs side by side: what slows the machine for a while slows both.
Result Measure(const Row& row, int rounds);

// The command line of a benchmark program. The result is the program's exit status.
int Main(int argc, char** argv);

// Makes the row that runs count for nothing, with this text as the reason: for code that is called back
// and cannot throw.
void ReportProblem(const std::string& problem);

} // namespace bench
