#include "print/cSetDfltPrinter.h"

#include "desktop/Printers.h"

cSetDfltPrinter::cSetDfltPrinter(Printers& printers)
    : printers_(printers)
{
    KnowsOriginal();
}

cSetDfltPrinter::~cSetDfltPrinter()
{
    if (!isChanged_)
        return;
    if (originalChoice_.isEmpty())
        printers_.ForgetDefault();
    else
        printers_.SetDefault(originalChoice_);
}

bool cSetDfltPrinter::SetPrinterAsDefault(const QString& deviceName)
{
    if (!KnowsOriginal())
        return false; // it could not be given back
    if (deviceName == CurrentPrinter)
        return true;
    if (!printers_.SetDefault(deviceName))
        return false;
    CurrentPrinter = deviceName;
    isChanged_ = true;
    return true;
}

/// A system that did not answer is asked again.
bool cSetDfltPrinter::KnowsOriginal()
{
    if (isKnown_)
        return true;
    const PrinterList printers = printers_.Installed();
    isKnown_ = printers.isKnown;
    originalChoice_ = printers.chosenDefault;
    OriginalPrinter = CurrentPrinter = printers.defaultName;
    return isKnown_;
}
