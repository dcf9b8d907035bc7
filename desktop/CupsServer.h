#pragma once

#include "desktop/Printers.h"

#include <cups/cups.h>

#include <chrono>
#include <memory>

/// One talk with the print server, on one thread. Every answer is waited for so long at the most; every
/// failure is a PrinterError with the server's reason.
class CupsServer {
public:
    explicit CupsServer(std::chrono::milliseconds longestWait);

    PrinterList Installed();
    /// False when there is no such printer, or the user's default stays another nevertheless.
    bool SetDefault(const QString& name);
    SheetMetrics Metrics(const Paper& paper);
    /// The number of the job. The document is a PDF of the job's sheet.
    int Print(const PrintJob& job, const QByteArray& document);
    void Cancel(int job);

private:
    template <typename Object, auto End> struct Deleter {
        void operator()(Object* object) const { End(object); }
    };
    using Connection = std::unique_ptr<http_t, Deleter<http_t, httpClose>>;
    using Details = std::unique_ptr<cups_dinfo_t, Deleter<cups_dinfo_t, cupsFreeDestInfo>>;
    struct FreeDestination {
        void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
    };
    using Destination = std::unique_ptr<cups_dest_t, FreeDestination>;

    /// What a printer is called by the server and what it can do.
    struct Queue {
        Destination destination;
        Details details;
    };

    [[noreturn]] static void FailAsRefused();
    Destination Default();
    Queue DefaultQueue();
    int Create(const Queue& queue, const PrintJob& job);
    void Send(const Queue& queue, int job, const QByteArray& document);

    Connection http_;
};
