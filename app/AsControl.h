#pragma once

#include "app/ControlError.h"
#include "desktop/Printers.h"
#include "desktop/WholeFile.h"
#include "imaging/PictureError.h"

#include <new>

/// Carries out a step of the floors below; what they refuse, and a lack of memory, becomes a ControlError.
template <typename Step> auto AsControl(Step&& step)
{
    try {
        return step();
    } catch (const FileError& error) {
        throw ControlError(error.Reason());
    } catch (const PrinterError& error) {
        throw ControlError(error.Reason());
    } catch (const imaging::PictureError& error) {
        throw ControlError(error.Reason());
    } catch (const std::bad_alloc&) {
        throw ControlError(QStringLiteral("There is not enough memory for this picture."));
    }
}
