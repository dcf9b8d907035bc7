#include "print/cSetDfltPrinter.h"

#include "desktop/Printers.h"

cSetDfltPrinter::cSetDfltPrinter(Printers& printers)
    : OriginalPrinter(printers.DefaultName())
    , printers_(printers)
{
    CurrentPrinter = OriginalPrinter;
}

cSetDfltPrinter::~cSetDfltPrinter()
{
    SetPrinterAsDefault(OriginalPrinter);
}

bool cSetDfltPrinter::SetPrinterAsDefault(const QString& deviceName)
{
    if (deviceName == CurrentPrinter)
        return true;
    if (!printers_.SetDefault(deviceName))
        return false;
    CurrentPrinter = deviceName;
    return true;
}
