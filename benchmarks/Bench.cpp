#include "Bench.h"

#include <windows.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <exception>
#include <string_view>

namespace bench
{
namespace
{

std::string g_problem;

double Now()
{
    LARGE_INTEGER frequency, count;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&count);
    return 1e6 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// Microseconds per unit.
double Time(const Work& work)
{
    if (work.prepare) {
        work.prepare();
    }
    const double start = Now();
    const size_t units = work.run();
    const double end = Now();
    if (units != work.units && g_problem.empty()) {
        g_problem =
            "did " + std::to_string(units) + " units of work instead of " + std::to_string(work.units);
    }
    return (end - start) / static_cast<double>(work.units);
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

constexpr char Help[] =
    "Runs the benchmarks and prints a row for each: its name, the library's time per unit of work, the\n"
    "time of the hand-written platform calls beside it (or of the smaller size), the ratio of the two,\n"
    "the bound of the ratio, and \"ok\" or \"over\".\n"
    "\n"
    "  --filter TEXT   only rows whose name contains TEXT\n"
    "  --rounds COUNT  measured runs of each side, of which the median counts (default 9)\n"
    "  --strict        end with status 1 if a row is over its bound\n"
    "  --list          print the names of the rows and run nothing\n"
    "  --help          print this text\n"
    "\n"
    "Exit status: 0; 1 with --strict and a row over its bound; 2 for a wrong command line; 3 if a row\n"
    "could not be measured.\n";

struct Options
{
    std::string_view filter;
    int rounds = 9;
    bool strict = false;
    bool list = false;
    bool help = false;
};

bool ReadOptions(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        const bool hasValue = i + 1 < argc;
        if (argument == "--strict") {
            options.strict = true;
        } else if (argument == "--list") {
            options.list = true;
        } else if (argument == "--help") {
            options.help = true;
        } else if (argument == "--filter" && hasValue) {
            options.filter = argv[++i];
        } else if (argument == "--rounds" && hasValue) {
            const std::string_view value = argv[++i];
            const auto read = std::from_chars(value.data(), value.data() + value.size(), options.rounds);
            if (read.ec != std::errc() || read.ptr != value.data() + value.size() || options.rounds < 1) {
                std::fprintf(stderr, "--rounds: not a number of runs: %s\n", argv[i]);
                return false;
            }
        } else {
            std::fprintf(stderr, "unknown or incomplete option: %s (see --help)\n", argv[i]);
            return false;
        }
    }
    return true;
}

} // namespace

std::vector<Row>& Rows()
{
    static std::vector<Row> rows;
    return rows;
}

void ReportProblem(const std::string& problem)
{
    if (g_problem.empty()) {
        g_problem = problem;
    }
}

Result Measure(const Row& row, int rounds)
{
    Result result;
    g_problem.clear();
    std::vector<double> ours, beside;
    try {
        Time(row.ours);
        Time(row.beside);
        for (int round = 0; round < rounds && g_problem.empty(); ++round) {
            if (round % 2 == 0) { // neither side always comes first
                ours.push_back(Time(row.ours));
                beside.push_back(Time(row.beside));
            } else {
                beside.push_back(Time(row.beside));
                ours.push_back(Time(row.ours));
            }
        }
    } catch (const std::exception& exception) {
        ReportProblem(exception.what());
    } catch (...) {
        ReportProblem("an exception");
    }
    result.problem = g_problem;
    if (result.problem.empty()) {
        std::vector<double> ratios;
        for (size_t round = 0; round < ours.size(); ++round)
            ratios.push_back(ours[round] / beside[round]);
        result.ratio = Median(std::move(ratios));
        result.ours = Median(std::move(ours));
        result.beside = Median(std::move(beside));
    }
    return result;
}

int Main(int argc, char** argv)
{
    Options options;
    if (!ReadOptions(argc, argv, options)) {
        return 2;
    }
    if (options.help) {
        std::fputs(Help, stdout);
        return 0;
    }
    size_t width = 10;
    for (const Row& row : Rows()) {
        width = std::max(width, row.name.size());
    }
    const int column = static_cast<int>(width);
    bool isOver = false, isBroken = false;
    if (!options.list) {
        std::printf("%-*s %14s %14s %8s %7s\n", column, "benchmark", "ours", "beside", "ratio", "bound");
    }
    for (const Row& row : Rows()) {
        if (row.name.find(options.filter) == std::string::npos) {
            continue;
        }
        if (options.list) {
            std::printf("%s\n", row.name.c_str());
            continue;
        }
        const Result result = Measure(row, options.rounds);
        if (!result.problem.empty()) {
            std::printf("%-*s not measured: %s\n", column, row.name.c_str(), result.problem.c_str());
            isBroken = true;
        } else {
            const bool over = result.ratio > row.bound;
            std::printf("%-*s %11.3f us %11.3f us %8.3f %7.2f  %s   (per %s)\n", column, row.name.c_str(),
                        result.ours, result.beside, result.ratio, row.bound, over ? "over" : "ok",
                        row.unit.c_str());
            if (row.note)
                std::printf("  %s\n", row.note().c_str());
            isOver |= over;
        }
        std::fflush(stdout);
    }
    if (isBroken) {
        return 3;
    }
    return options.strict && isOver ? 1 : 0;
}

} // namespace bench
