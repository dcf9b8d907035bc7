#pragma once

#include "desktop/Printers.h"

/// A system without printers, for the reason given.
class NoPrinters : public Printers {
public:
    explicit NoPrinters(const QString& reason)
        : reason_(reason)
    {
    }
    PrinterList Installed() override { return { {}, {}, reason_ }; }
    bool SetDefault(const QString&) override { return false; }
    SheetMetrics Metrics(const Paper&) override { throw PrinterError(reason_); }
    void Print(const PrintJob&) override { throw PrinterError(reason_); }

private:
    QString reason_;
};
