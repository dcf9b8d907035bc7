#pragma once

#include "frame/Main.h"
#include "tests/testing/FrameNeighbours.h"

/// The parts of a real frame over these neighbours, which outlive it.
inline FrameParts PartsOf(FrameNeighbours& neighbours, const PlayerFactory& makePlayer)
{
    return { neighbours.state, neighbours.clipboard, neighbours.dialogs, neighbours.errors,
        neighbours.documents, neighbours.printers, makePlayer };
}
