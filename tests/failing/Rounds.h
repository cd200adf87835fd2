// Rounds of one operation in which the platform fails at its first call, at its second, and so on.
#pragma once

#include <VelmUtil22.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "FailingCalls.h"

namespace failingtest
{

// Kinds of exceptions that an operation may let out.
enum Exceptions : unsigned
{
    NoException = 0,
    Memory = 1,          // CMemoryException* and std::bad_alloc
    ComMemory = 2,       // _com_error with E_OUTOFMEMORY
    HostFailure = 4,     // COleDispatchException*
    NoGdiResource = 8,   // CResourceException*
    OtherException = 16, // any else
};

// What else is to be known of an operation.
enum Traits : unsigned
{
    // A second run on the same ground cannot give the result of the first.
    Once = 1,
    // The framework may report one failure in a box: it does so for what it cannot make for a message, such
    // as the objects that a handler is given, and for what a handler lets out.
    Reported = 2,
};

// What an operation did in one round.
struct Outcome
{
    unsigned thrown = NoException;
    std::string result; // what it returned, with the message boxes that it showed behind it
    std::string state;  // of its ground afterwards
};

// What an operation works on, made anew for every round.
class Ground
{
public:
    virtual ~Ground() = default;
    // All that an operation must keep when it fails, as text.
    virtual std::string State() = 0;
    // Grounds with a host of their own: its n-th Invoke from now fails, 0 for none; and how many there were.
    virtual bool FailInvokeAt(unsigned) { return false; }
    virtual unsigned InvokeCalls() { return 0; }
};

// One public operation. A round that failed must end in one of these ways:
// - an exception of one of the kinds that may leave, or the failure's result: the ground is as before;
// - the usual result: the ground is as it always is after that. So it is where the operation makes good for
//   what failed, and where what failed is no part of its result;
// - what `isKept` says, where the header states something else.
// After each the operation is run once more, with nothing failing, and gives its usual result; on a ground
// that is as before it also leaves what it always leaves.
struct Operation
{
    std::string name;
    std::function<std::unique_ptr<Ground>()> make;
    std::function<std::string(Ground&)> run;
    unsigned mayThrow = NoException;
    std::vector<std::string> failures = {}; // results; one that ends with "*" stands for all that begin so
    // Whether a ground that was `before`, and would be `done`, is as the header states after the failure.
    std::function<bool(const std::string& before, const std::string& done, const Outcome& failed)> isKept =
        nullptr;
    unsigned traits = 0;
};

template <class G>
struct Row
{
    std::string name;
    std::function<std::string(G&)> run;
    unsigned mayThrow = NoException;
    std::vector<std::string> failures = {};
    decltype(Operation::isKept) isKept = nullptr;
    unsigned traits = 0;
};

// The rows as operations on grounds of their type.
template <class G>
std::vector<Operation> OperationsOn(std::vector<Row<G>> rows)
{
    std::vector<Operation> operations;
    for (Row<G>& row : rows) {
        operations.push_back(
            {row.name, [] { return std::make_unique<G>(); },
             [run = std::move(row.run)](Ground& ground) { return run(static_cast<G&>(ground)); },
             row.mayThrow, row.failures, row.isKept, row.traits});
    }
    return operations;
}

void PrintTo(const Operation& operation, std::ostream* out);

// Runs all rounds of an operation for each kind of resource. Prints nothing; fails the test where a round
// ends in no way that it may, or loses something. Gives how many rounds failed on purpose.
unsigned RunRounds(const Operation& operation);

// Texts of results.
std::string Shown(const CString& text);
inline std::string Shown(int number)
{
    return std::to_string(number);
}
inline std::string Shown(bool flag)
{
    return flag ? "true" : "false";
}

} // namespace failingtest
