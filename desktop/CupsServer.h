#pragma once

#include "desktop/Printers.h"

#include <cups/cups.h>

#include <chrono>
#include <memory>
#include <stop_token>

/// One talk with the print server, on one thread. Every answer is waited for so long at the most; every
/// failure is a PrinterError with the server's reason.
class CupsServer {
public:
    /// Connects to the server that CUPS knows for this user.
    explicit CupsServer(std::chrono::milliseconds longestWait);

    /// A job that the server has, and the printer to which it went.
    struct SentJob {
        QByteArray printer;
        int number = 0;
    };

    /// All printers.
    PrinterList Installed();
    /// False, and nothing changed, when there is no such printer, when the user's default would stay another
    /// nevertheless, and when it was given up meanwhile.
    bool SetDefault(const QString& name, const std::stop_token& givenUp);
    /// False when the user's choice cannot be dropped.
    bool ForgetDefault();
    /// Of a sheet in the default printer.
    SheetMetrics Metrics(const Paper& paper);
    /// The document is a PDF of the job's sheet; nothing more of it is sent once it is given up. What fails
    /// leaves no job behind.
    SentJob Print(const PrintJob& job, const QByteArray& document, const std::stop_token& givenUp);
    /// Takes a job out of its printer's queue.
    void Cancel(const SentJob& job);

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

    static PrinterError Refusal();
    static void FailIf(const std::stop_token& givenUp);
    /// A printer by its name, the default without one; null when there is none.
    Destination Find(const char* name);
    Queue DefaultQueue();
    int Create(const Queue& queue, const PrintJob& job);
    void CancelEmpty(const char* printer, const QString& title);
    void Send(const Queue& queue, int job, const QByteArray& document, const std::stop_token& givenUp);

    std::chrono::milliseconds longestWait_;
    Connection http_;
};
