#pragma once

#include <QString>

class Printers;

/// Changes the system's default printer, and gives the old one back at its end.
class cSetDfltPrinter {
public:
    /// The printers outlive this object.
    explicit cSetDfltPrinter(Printers& printers);
    cSetDfltPrinter(const cSetDfltPrinter&) = delete;
    cSetDfltPrinter& operator=(const cSetDfltPrinter&) = delete;
    ~cSetDfltPrinter();

    /// True on success, and of the printer that is the default already; then the system is not asked.
    bool SetPrinterAsDefault(const QString& deviceName);

    QString CurrentPrinter; ///< the default as last set
    QString OriginalPrinter; ///< the default found at creation, empty when there was none

private:
    Printers& printers_;
};
