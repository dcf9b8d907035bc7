#include "desktop/CupsPrinters.h"

#include "desktop/AskAside.h"
#include "desktop/CupsServer.h"
#include "desktop/PagePdf.h"

#include <utility>

namespace {

struct NoAnswer : PrinterError {
    NoAnswer()
        : PrinterError(QStringLiteral("The print service does not answer."))
    {
    }
};

constexpr auto Forget = [](const auto&) {};

} // namespace

CupsPrinters::CupsPrinters(std::function<void()> whileWaiting, std::chrono::milliseconds longestWait)
    : whileWaiting_(std::move(whileWaiting))
    , longestWait_(longestWait)
{
}

PrinterList CupsPrinters::Installed()
{
    try {
        return AskAside<NoAnswer>(
            { longestWait_, whileWaiting_ },
            [longest = longestWait_] { return CupsServer(longest).Installed(); }, Forget);
    } catch (const PrinterError& error) {
        return { {}, {}, error.Reason() };
    }
}

bool CupsPrinters::SetDefault(const QString& name)
{
    try {
        return AskAside<NoAnswer>(
            { longestWait_, whileWaiting_ },
            [longest = longestWait_, name] { return CupsServer(longest).SetDefault(name); }, Forget);
    } catch (const PrinterError&) {
        return false;
    }
}

SheetMetrics CupsPrinters::Metrics(const Paper& paper)
{
    return AskAside<NoAnswer>(
        { longestWait_, whileWaiting_ },
        [longest = longestWait_, paper] { return CupsServer(longest).Metrics(paper); }, Forget);
}

void CupsPrinters::Print(const PrintJob& job)
{
    const std::chrono::milliseconds longest = 2 * longestWait_;
    AskAside<NoAnswer>(
        { longest, whileWaiting_ }, [longest, job] { return CupsServer(longest).Print(job, PagePdf(job)); },
        [longest](int number) { CupsServer(longest).Cancel(number); });
}
