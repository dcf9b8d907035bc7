#pragma once

#include "base/Rows.h"
#include "imaging/Edges.h"

#include <array>

using imaging::SpatialCode;

/// The edge filters of the visual editor.
enum class EdgeFilter { Sobel, Prewitt, Shift, Edge, Count };

/// What of the direction chosen a filter looks at.
enum class DirectionRead { FilterType, FilterDirection };

struct EdgeFilterRow {
    EdgeFilter filter;
    const char* objectName;
    const char* label;
    DirectionRead reads;
    std::array<SpatialCode, 4> codes; ///< by the choice
};

/// FilterType is 0 horizontal, 1 vertical; FilterDirection is 0 east, 1 west, 2 north, 3 south.
inline constexpr std::array<EdgeFilterRow, size_t(EdgeFilter::Count)> EdgeFilterRows { {
    { EdgeFilter::Sobel, "Command12", "Sobel", DirectionRead::FilterType,
        { SpatialCode::SobelHorizontal, SpatialCode::SobelVertical } },
    { EdgeFilter::Prewitt, "Command13", "Prewitt", DirectionRead::FilterType,
        { SpatialCode::PrewittHorizontal, SpatialCode::PrewittVertical } },
    // Always horizontal: its vertical code, 28, waits for a third FilterType that nobody gives. Kept so.
    { EdgeFilter::Shift, "Command14", "Shift", DirectionRead::FilterType,
        { SpatialCode::ShiftHorizontal, SpatialCode::ShiftHorizontal, SpatialCode::ShiftVertical } },
    { EdgeFilter::Edge, "Command15", "Edge", DirectionRead::FilterDirection,
        { SpatialCode::GradientEast, SpatialCode::GradientWest, SpatialCode::GradientNorth,
            SpatialCode::GradientSouth } },
} };
static_assert(IsOneRowEach(EdgeFilterRows, &EdgeFilterRow::filter, size_t(EdgeFilter::Count)));

/// The code of a filter for the direction chosen.
constexpr SpatialCode SpatialCodeOf(const EdgeFilterRow& row, int filterType, int filterDirection)
{
    return row.codes[size_t(row.reads == DirectionRead::FilterType ? filterType : filterDirection)];
}
