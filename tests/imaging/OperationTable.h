#pragma once

#include "imaging/Colours.h"
#include "imaging/Edges.h"
#include "imaging/Filters.h"
#include "imaging/Mirror.h"
#include "imaging/Rotate.h"
#include "imaging/Tones.h"
#include "imaging/Underlay.h"
#include <functional>
#include <ostream>
#include <vector>

/// One call of an operation on pictures.
struct OperationRow {
    enum class Kind { Colours, Pixels, Places }; ///< what it changes

    const char* name;
    Kind kind;
    std::function<QImage(const QImage&)> run;
};

/// Every operation, with values that show.
const std::vector<OperationRow>& Operations();
/// Every operation that has a neutral value, with that value.
const std::vector<OperationRow>& NeutralOperations();

inline constexpr int Depths[] = { 1, 4, 8, 16, 24, 32 };
/// The picture at a depth, with the best palette for it where it has one.
QImage AtDepth(const QImage& picture, int bits);
/// The pixels as colours, whatever the format.
QImage Colours(const QImage& picture);
/// The largest difference of a channel in any pixel; 256 for other sizes.
int Difference(const QImage& one, const QImage& other);
