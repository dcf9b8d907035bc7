#pragma once

#include "desktop/Printers.h"

#include <QMargins>

#include <functional>

/// Printers that keep what they were asked, the first of them the default.
class FakePrinters : public Printers {
public:
    PrinterList list { { QStringLiteral("Alpha"), QStringLiteral("Beta") }, QStringLiteral("Alpha"), {}, {} };
    QString systemDefault = QStringLiteral("Alpha"); ///< while the user has chosen none
    /// What of the sheet cannot be reached, in printer pixels: a quarter of an inch all around.
    QMargins margins = QMargins(1, 1, 1, 1) * (PrinterPixelsPerInch / 4);
    bool refusesDefault = false;
    bool failsMetrics = false;
    bool failsPrint = false;
    std::function<void()> whilePrinting;
    std::function<void()> whenAsked; ///< for its margins
    std::function<void()> whileWaiting; ///< for the list, or for a change of the default
    QList<PrintJob> jobs;
    QList<Paper> papers; ///< of which the metrics were asked
    QStringList defaultsSet; ///< all that was asked, refused or not
    int timesListed = 0;

    /// As on a system where nobody has set up a printer.
    void RemoveAll()
    {
        list = { {}, {}, QStringLiteral("No printer is set up."), {} };
        failsMetrics = failsPrint = refusesDefault = true;
    }
    /// As when the service does not answer.
    void FallSilent()
    {
        list = { {}, {}, QStringLiteral("The printer does not answer."), {}, false };
        failsMetrics = failsPrint = refusesDefault = true;
    }

    PrinterList Installed() override
    {
        ++timesListed;
        Wait();
        return list;
    }
    bool SetDefault(const QString& name) override
    {
        defaultsSet << name;
        Wait();
        const QString printer = name.section(u'/', 0, 0);
        if (refusesDefault || !list.names.contains(printer))
            return false;
        list.defaultName = printer;
        list.chosenDefault = name;
        return true;
    }
    bool ForgetDefault() override
    {
        if (refusesDefault)
            return false;
        list.defaultName = systemDefault;
        list.chosenDefault.clear();
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
        return { sheet, { margins.left(), margins.top() }, sheet.shrunkBy(margins) };
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
    void Wait() const
    {
        if (whileWaiting)
            whileWaiting();
    }
    static int Pixels(int millimetres) { return qRound(millimetres / 25.4 * PrinterPixelsPerInch); }
};
