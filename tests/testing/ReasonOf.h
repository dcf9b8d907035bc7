#pragma once

#include "app/ControlError.h"

/// Why a step failed, in the words of its ControlError; empty when it did not.
template <typename Step> QString ReasonOf(Step&& step)
{
    try {
        step();
    } catch (const ControlError& error) {
        return error.Reason();
    }
    return {};
}
