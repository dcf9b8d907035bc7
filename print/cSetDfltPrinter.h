#pragma once

#include <QString>

class Printers;

/// Changes the user's default printer, and gives the old one back at its end: his own choice, or where he had
/// none, the system's.
class cSetDfltPrinter {
public:
    /// The printers outlive this object.
    explicit cSetDfltPrinter(Printers& printers);
    cSetDfltPrinter(const cSetDfltPrinter&) = delete;
    cSetDfltPrinter& operator=(const cSetDfltPrinter&) = delete;
    ~cSetDfltPrinter();

    /// True on success, and of the printer that is the default already; then the system is not asked. False
    /// also as long as the system does not tell the default that there was.
    bool SetPrinterAsDefault(const QString& deviceName);

    QString CurrentPrinter; ///< the default as last set
    QString OriginalPrinter; ///< the default found at creation, empty when there was none or nobody told

private:
    bool KnowsOriginal();

    Printers& printers_;
    bool isKnown_ = false; ///< OriginalPrinter has been told
    QString originalChoice_; ///< of the user, with his set of options; empty when he had made none
    bool isChanged_ = false;
};
