#pragma once

#include "desktop/Printers.h"

#include <functional>

/// Printers that keep what they were asked, the first of them the default.
class FakePrinters : public Printers {
public:
    PrinterList list { { QStringLiteral("Alpha"), QStringLiteral("Beta") }, QStringLiteral("Alpha"), {} };
    /// A quarter of an inch that cannot be reached all around the sheet.
    int margin = PrinterPixelsPerInch / 4;
    bool refusesDefault = false;
    bool failsMetrics = false;
    bool failsPrint = false;
    std::function<void()> whilePrinting;
    std::function<void()> whenAsked; ///< for its margins
    QList<PrintJob> jobs;
    QList<Paper> papers; ///< of which the metrics were asked
    QStringList defaultsSet; ///< all that was asked, refused or not
    int timesListed = 0;

    /// As on a system where nobody has set up a printer.
    void RemoveAll()
    {
        list = { {}, {}, QStringLiteral("No printer is set up.") };
        failsMetrics = failsPrint = refusesDefault = true;
    }

    PrinterList Installed() override
    {
        ++timesListed;
        return list;
    }
    bool SetDefault(const QString& name) override
    {
        defaultsSet << name;
        if (refusesDefault || !list.names.contains(name))
            return false;
        list.defaultName = name;
        return true;
    }
    SheetMetrics Metrics(const Paper& paper) override
    {
        papers << paper;
        if (whenAsked)
            whenAsked();
        if (failsMetrics)
            throw PrinterError(QStringLiteral("The printer does not answer."));
        const QSize sheet(Pixels(paper.size.width()), Pixels(paper.size.height()));
        return { sheet, { margin, margin }, sheet - QSize(2 * margin, 2 * margin) };
    }
    void Print(const PrintJob& job) override
    {
        if (whilePrinting)
            whilePrinting();
        if (failsPrint)
            throw PrinterError(QStringLiteral("The printer does not answer."));
        jobs << job;
    }

private:
    static int Pixels(int millimetres) { return qRound(millimetres / 25.4 * PrinterPixelsPerInch); }
};
