#pragma once

#include "desktop/Printers.h"

#include <chrono>
#include <functional>
#include <stop_token>

class CupsServer;

/// The printers of the print server that CUPS knows for this user. A server that is gone or silent is given
/// up after a few seconds; windows can be painted meanwhile.
class CupsPrinters : public Printers {
public:
    /// whileWaiting is called about twenty times a second as long as the server is asked. A question waits so
    /// long at the most, a page twice as long.
    explicit CupsPrinters(std::function<void()> whileWaiting = {},
        std::chrono::milliseconds longestWait = std::chrono::seconds(4));

    PrinterList Installed() override;
    /// The default of this user, not that of the others on the machine.
    bool SetDefault(const QString& name) override;
    bool ForgetDefault() override;
    SheetMetrics Metrics(const Paper& paper) override;
    /// A printer that is stopped or takes no jobs refuses the page: nobody wants it hours later.
    void Print(const PrintJob& job) override;

private:
    using Change = std::function<bool(CupsServer& server, const std::stop_token& givenUp)>;

    bool IsDone(const Change& change);

    std::function<void()> whileWaiting_;
    std::chrono::milliseconds longestWait_;
};
