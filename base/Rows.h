#pragma once

#include <cstddef>
#include <iterator>

/// Whether a table has one row for each of count enumerators, in their order, the first of them being first.
/// member is where a row names its enumerator: static_assert(IsOneRowEach(Rows, &Row::id,
/// size_t(Id::Count))).
template <typename Table, typename Row, typename Id>
constexpr bool IsOneRowEach(const Table& rows, Id Row::*member, std::size_t count, std::size_t first = 0)
{
    if (std::size(rows) != count)
        return false;
    std::size_t expected = first;
    for (const Row& row : rows)
        if (static_cast<std::size_t>(row.*member) != expected++)
            return false;
    return true;
}
