// Adding to a list that may be full.
#pragma once

#include <stdexcept>

// Adds `value` to the end of `list`, a standard container. Throws std::length_error ("list too long"), and
// adds nothing, when it holds as many elements as it can: not every standard library looks at its own limit.
template <class List, class Value>
void AppendWithinLimit(List& list, const Value& value)
{
    if (list.size() >= list.max_size())
        throw std::length_error("list too long");
    list.push_back(value);
}
